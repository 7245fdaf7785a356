#include "tools/orvex/ProgressLine.h"

#include <cstdio>
#include <unistd.h>

namespace OrvexTool {

namespace {
std::string Megabytes(std::uint64_t bytes)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.1f MB", static_cast<double>(bytes) / 1e6);
    return text;
}
}  // namespace

CProgressLine::CProgressLine(std::string subject, std::uint64_t inputSize)
    : m_subject(std::move(subject)), m_shown(inputSize > MinimumInputSize && ::isatty(STDERR_FILENO) == 1)
{
    if (!m_shown) return;
    m_subject += " (" + Megabytes(inputSize) + ")";
    m_start = std::chrono::steady_clock::now();
    m_thread = std::thread([this] { Run(); });
}

CProgressLine::~CProgressLine()
{
    Finish();
}

void CProgressLine::SetStep(const std::string& step)
{
    if (!m_shown) return;
    std::lock_guard<std::mutex> lock(m_mutex);
    m_step = step;
    Draw();
}

void CProgressLine::Finish()
{
    if (!m_shown) return;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_stop = true;
    }
    m_wake.notify_all();
    if (m_thread.joinable()) m_thread.join();
    // Back to the start of the line and clear it.
    std::fputs("\r\033[K", stderr);
    std::fflush(stderr);
    m_shown = false;
}

void CProgressLine::Run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_stop) {
        m_wake.wait_for(lock, std::chrono::milliseconds(250));
        if (!m_stop) Draw();
    }
}

void CProgressLine::Draw()
{
    if (m_step.empty()) return;
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - m_start).count();
    std::fprintf(stderr, "\r\033[Korvex: %s: %s... %.1f s", m_subject.c_str(), m_step.c_str(), seconds);
    std::fflush(stderr);
}

}  // namespace OrvexTool
