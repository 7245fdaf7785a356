// A std::string with the text of a tree node, for the reading descriptors, which
// hand text on as const std::string& (to the value parsers and to a variant that
// borrows it for one property store). The tree keeps its text in its own storage;
// a lease copies it into a buffer that the thread reuses from one value to the
// next, so a long text costs no heap block. A lease taken while another is alive
// on the same thread uses a buffer of its own.
#pragma once

#include <string>
#include <string_view>

namespace OrvexXmlLib5 {
namespace Detail {

class CTextLease
{
public:
    CTextLease();
    CTextLease(const CTextLease&) = delete;
    CTextLease& operator=(const CTextLease&) = delete;
    ~CTextLease();

    // The lease's string, now holding text; valid until the next Hold or the lease ends.
    const std::string& Hold(std::string_view text)
    {
        m_buffer->assign(text.data(), text.size());
        return *m_buffer;
    }

private:
    std::string* m_buffer;
    std::string m_own;
    // The thread's mark that its buffer is leased, when this lease holds that buffer.
    bool* m_leased;
};

}  // namespace Detail
}  // namespace OrvexXmlLib5
