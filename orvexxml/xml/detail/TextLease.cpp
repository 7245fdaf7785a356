#include "orvexxml/xml/detail/TextLease.h"

#include "orvexxml/frame/detail/ThreadOwned.h"

namespace OrvexXmlLib5 {
namespace Detail {

namespace {

// The thread's shared buffer, and whether a lease holds it.
struct CSharedText
{
    std::string buffer;
    bool leased = false;
};

// A buffer that grew beyond this for one long text gives its memory back.
constexpr std::size_t KeptCapacity = 64 * 1024;

}  // namespace

CTextLease::CTextLease() : m_buffer(&m_own), m_leased(nullptr)
{
    CSharedText* shared = CThreadOwned<CSharedText>::Get();
    if (!shared || shared->leased) return;
    shared->leased = true;
    m_leased = &shared->leased;
    m_buffer = &shared->buffer;
}

CTextLease::~CTextLease()
{
    if (!m_leased) return;
    if (m_buffer->capacity() > KeptCapacity) std::string().swap(*m_buffer);
    *m_leased = false;
}

}  // namespace Detail
}  // namespace OrvexXmlLib5
