#include "orvexxml/frame/OrvexException.h"

#include <utility>

namespace OrvexXmlLib5 {

COrvexException::COrvexException() : m_inner(nullptr) {}

COrvexException::COrvexException(std::string message) : m_message(std::move(message)), m_inner(nullptr) {}

COrvexException::COrvexException(std::string message, const COrvexException& inner)
    : m_message(std::move(message)), m_inner(inner.Clone())
{
}

COrvexException::COrvexException(const COrvexException& other)
    : std::exception(other), m_message(other.m_message), m_inner(other.m_inner ? other.m_inner->Clone() : nullptr)
{
}

COrvexException& COrvexException::operator=(const COrvexException& other)
{
    if (this != &other) {
        // Clone first: a chain assigned from its own inner level stays valid.
        COrvexException* inner = other.m_inner ? other.m_inner->Clone() : nullptr;
        m_message = other.m_message;
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

COrvexException* COrvexException::Clone() const
{
    return new COrvexException(*this);
}

}  // namespace OrvexXmlLib5
