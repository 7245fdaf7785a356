#include "orvexxml/xml/detail/TextLease.h"

namespace OrvexXmlLib5 {
namespace Detail {

namespace {

thread_local std::string t_buffer;
thread_local bool t_leased = false;

// A buffer that grew beyond this for one long text gives its memory back.
constexpr std::size_t KeptCapacity = 64 * 1024;

}  // namespace

CTextLease::CTextLease() noexcept : m_buffer(&m_own), m_shared(!t_leased)
{
    if (m_shared) {
        t_leased = true;
        m_buffer = &t_buffer;
    }
}

CTextLease::~CTextLease()
{
    if (!m_shared) return;
    if (t_buffer.capacity() > KeptCapacity) std::string().swap(t_buffer);
    t_leased = false;
}

}  // namespace Detail
}  // namespace OrvexXmlLib5
