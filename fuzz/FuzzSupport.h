// Helpers shared by the fuzz targets: a cursor over the fuzzer's bytes, the example
// classes behind one interface, and a failure that libFuzzer records as a crash.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "examples/binding/Order.h"
#include "examples/echo/EchoNode.h"
#include "examples/library/Library.h"
#include "examples/purchase-order/PurchaseOrder.h"
#include "orvexxml/OrvexXmlLib5.h"

namespace OrvexFuzz {

using namespace OrvexXmlLib5;

// Stops the run with the two texts that disagree, so the crash report says why.
[[noreturn]] inline void Fail(const char* what, const std::string& first, const std::string& second)
{
    std::fprintf(stderr, "%s\n--- first (%zu bytes)\n%s\n--- second (%zu bytes)\n%s\n", what, first.size(),
                 first.c_str(), second.size(), second.c_str());
    std::abort();
}

inline void Check(bool condition, const char* what)
{
    if (!condition) Fail(what, "", "");
}

// Reads the fuzzer's bytes front to back; past the end every read gives zeros or
// empty strings, so a target never needs to check the length itself.
class CByteCursor
{
public:
    CByteCursor(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size), m_at(0) {}

    std::uint8_t Byte() { return m_at < m_size ? m_data[m_at++] : 0; }
    std::uint32_t Word()
    {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i) value = value << 8 | Byte();
        return value;
    }
    // Bytes up to the next separator (not included) or the end.
    std::string Until(char separator)
    {
        std::string text;
        while (m_at < m_size && m_data[m_at] != static_cast<std::uint8_t>(separator))
            text += static_cast<char>(m_data[m_at++]);
        if (m_at < m_size) ++m_at;
        return text;
    }
    std::string Rest()
    {
        std::string text(reinterpret_cast<const char*>(m_data + m_at), m_size - m_at);
        m_at = m_size;
        return text;
    }
    bool Empty() const { return m_at >= m_size; }

private:
    const std::uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_at;
};

// One of the example classes, chosen by number: the Primer's purchase order, the
// order with choices of any attributes and mixed text, the library with abstract
// types and a factory, and the echo node that takes any element.
class CExample
{
public:
    static constexpr int Count = 4;

    explicit CExample(int which) : m_which(which % Count)
    {
        switch (m_which) {
            case 0:
                Hold(OrvexExamples::CPurchaseOrder::CreateInstance());
                break;
            case 1:
                Hold(OrvexExamples::COrder::CreateInstance());
                break;
            case 2:
                Hold(OrvexExamples::CLibrary::CreateInstance());
                break;
            default:
                m_echo.reset(new OrvexExamples::CEchoNode);
                break;
        }
    }
    CExample(const CExample&) = delete;
    CExample& operator=(const CExample&) = delete;
    ~CExample()
    {
        if (m_held) m_held->Release();
    }

    CXmlObjectBase& Object() { return m_held ? *m_held : *m_echo; }

private:
    template <typename T>
    void Hold(const CSmartPtr<T>& object)
    {
        m_held = object.Get();
        m_held->AddRef();
    }

    int m_which;
    CXmlObjectBase* m_held = nullptr;
    std::unique_ptr<OrvexExamples::CEchoNode> m_echo;
};

// A context whose reading options come from the bits of flags.
inline CXmlSerializationContext ContextFrom(std::uint8_t flags)
{
    CXmlSerializationContext context;
    context.SetIgnoreUnknownAttributes(flags & 0x01);
    if (flags & 0x02)
        context.SetIgnoreUnknownElements(true);
    else
        context.SetIgnoreMissingMandatoryElements(flags & 0x04);
    context.SetIgnoreMissingChoice(flags & 0x08);
    context.SetIgnoreInvalidCollectionCounts(flags & 0x10);
    context.SetIgnoreNamespaces(flags & 0x20);
    context.SetAllowTruncatedDocuments(flags & 0x40);
    return context;
}

}  // namespace OrvexFuzz
