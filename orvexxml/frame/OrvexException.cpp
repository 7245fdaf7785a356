#include "orvexxml/frame/OrvexException.h"

#include "orvexxml/frame/FormatString.h"

#include <utility>

namespace OrvexXmlLib5 {

COrvexException::COrvexException() : m_inner(nullptr) {}

COrvexException::COrvexException(std::string message) : m_message(std::move(message)), m_inner(nullptr) {}

COrvexException::COrvexException(std::string message, const COrvexException& inner)
    : m_message(std::move(message)), m_inner(inner.Clone()), m_location(inner.m_location)
{
}

COrvexException::COrvexException(const COrvexException& other)
    : std::exception(other), m_message(other.m_message), m_inner(other.m_inner ? other.m_inner->Clone() : nullptr),
      m_location(other.m_location)
{
}

COrvexException& COrvexException::operator=(const COrvexException& other)
{
    if (this != &other) {
        // Clone first: a chain assigned from its own inner level stays valid.
        COrvexException* inner = other.m_inner ? other.m_inner->Clone() : nullptr;
        m_message = other.m_message;
        m_location = other.m_location;
        delete m_inner;
        m_inner = inner;
    }
    return *this;
}

COrvexException::~COrvexException()
{
    // Chains are short (one level per generated class on the way up), so the
    // recursive destruction of inner exceptions is bounded by the object depth.
    delete m_inner;
}

std::string COrvexException::GetFullMessage() const
{
    std::string full = m_message;
    for (const COrvexException* e = m_inner; e != nullptr; e = e->m_inner) {
        full += '\n';
        full += e->m_message;
    }
    return full;
}

CSourceLocation CSourceLocation::InText(std::uint64_t line, std::uint64_t column)
{
    CSourceLocation location;
    location.kind = Kind_Text;
    location.line = line;
    location.column = column;
    return location;
}

CSourceLocation CSourceLocation::InBinary(std::uint64_t octetOffset)
{
    CSourceLocation location;
    location.kind = Kind_Binary;
    location.octetOffset = octetOffset;
    return location;
}

std::string CSourceLocation::ToString() const
{
    switch (kind) {
        case Kind_Text:
            return FormatString("line %llu, column %llu", static_cast<unsigned long long>(line),
                                static_cast<unsigned long long>(column));
        case Kind_Binary:
            return FormatString("octet %llu", static_cast<unsigned long long>(octetOffset));
        default:
            return std::string();
    }
}

COrvexException* COrvexException::Clone() const
{
    return new COrvexException(*this);
}

}  // namespace OrvexXmlLib5
