// A one-line report of a long run on standard error: what the program is doing and
// for how long, redrawn in place a few times a second. It shows only when standard
// error is a terminal and the input is large; otherwise every call does nothing.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>

namespace OrvexTool {

class CProgressLine
{
public:
    // Inputs up to this many bytes finish too fast to need a report.
    static constexpr std::uint64_t MinimumInputSize = std::uint64_t(4) << 20;

    // subject names the input; inputSize is its size in bytes (0 when not known).
    CProgressLine(std::string subject, std::uint64_t inputSize);
    CProgressLine(const CProgressLine&) = delete;
    CProgressLine& operator=(const CProgressLine&) = delete;
    // Clears the line.
    ~CProgressLine();

    bool IsShown() const { return m_shown; }
    // The step now running, such as "parsing"; the time counts from the first step.
    void SetStep(const std::string& step);
    // Removes the line, so that what the program prints next starts on a clean line.
    void Finish();

private:
    void Run();
    void Draw();

    std::string m_subject;
    bool m_shown;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::string m_step;
    bool m_stop = false;
    std::chrono::steady_clock::time_point m_start;
    std::thread m_thread;
};

}  // namespace OrvexTool
