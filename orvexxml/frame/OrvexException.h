// The exception family: every failure of the library leaves as one of these.
// Messages are in the local character encoding; chains are built on the way up.
#pragma once

#include "orvexxml/Export.h"

#include <cstdint>
#include <exception>
#include <string>

namespace OrvexXmlLib5 {

// Where in its input a read failed: the start tag of the element being read, by
// line and column (both from 1) in XML text, by the offset of its first octet in
// Fast Infoset.
struct ORVEXXML_API CSourceLocation
{
    enum Kind : unsigned char { Kind_None, Kind_Text, Kind_Binary };

    Kind kind = Kind_None;
    std::uint64_t line = 0;
    std::uint64_t column = 0;
    std::uint64_t octetOffset = 0;

    static CSourceLocation InText(std::uint64_t line, std::uint64_t column);
    static CSourceLocation InBinary(std::uint64_t octetOffset);

    bool IsKnown() const { return kind != Kind_None; }
    // "line 12, column 5", "octet 1234", or empty when not known.
    std::string ToString() const;
};

class ORVEXXML_API COrvexException : public std::exception
{
public:
    COrvexException();
    explicit COrvexException(std::string message);
    // The inner exception is cloned, so it keeps its most derived class.
    COrvexException(std::string message, const COrvexException& inner);
    COrvexException(const COrvexException& other);
    COrvexException& operator=(const COrvexException& other);
    ~COrvexException() override;

    // Copy of the message of this level alone.
    std::string GetMessageA() const { return m_message; }
    std::string GetMessage() const { return m_message; }
    // One line per level, outermost first, no line feed at the end.
    std::string GetFullMessage() const;
    // Null when this exception has no inner exception.
    const COrvexException* GetInnerException() const { return m_inner; }
    // Where the read that failed had got to; not known for failures outside a read.
    // A chain built on the way up keeps the innermost known place.
    const CSourceLocation& GetLocation() const { return m_location; }
    void SetLocation(const CSourceLocation& location) { m_location = location; }

    const char* what() const noexcept override { return m_message.c_str(); }

protected:
    // A new heap copy with the most derived type; the caller owns it.
    virtual COrvexException* Clone() const;
    static COrvexException* CloneOf(const COrvexException& e) { return e.Clone(); }

private:
    std::string m_message;
    COrvexException* m_inner;
    CSourceLocation m_location;
};

#define ORVEX_DECLARE_EXCEPTION(Name, Base)                                                 \
    class ORVEXXML_API Name : public Base                                                        \
    {                                                                                       \
    public:                                                                                 \
        Name() = default;                                                                   \
        explicit Name(std::string message) : Base(std::move(message)) {}                    \
        Name(std::string message, const COrvexException& inner)                             \
            : Base(std::move(message), inner) {}                                            \
        Name(const COrvexException& other) : Base(other) {}                                 \
        Name(const Name& other) = default;                                                  \
        Name& operator=(const Name& other) = default;                                       \
        ~Name() override = default;                                                         \
                                                                                            \
    protected:                                                                              \
        COrvexException* Clone() const override { return new Name(*this); }                 \
    };

// A document or object that does not satisfy its schema.
ORVEX_DECLARE_EXCEPTION(COrvexValidationException, COrvexException)
// A value that breaks a facet or a lexical rule.
ORVEX_DECLARE_EXCEPTION(COrvexInvalidValueException, COrvexValidationException)
// A namespace outside the allowed list.
ORVEX_DECLARE_EXCEPTION(COrvexInvalidNamespaceException, COrvexValidationException)
// A bad argument to a property or an operation.
ORVEX_DECLARE_EXCEPTION(COrvexInvalidParamException, COrvexException)
// An operation that the object's state forbids.
ORVEX_DECLARE_EXCEPTION(COrvexInvalidStateException, COrvexException)
// Arithmetic or range overflow in the value types.
ORVEX_DECLARE_EXCEPTION(COrvexOverFlowException, COrvexException)

#undef ORVEX_DECLARE_EXCEPTION

}  // namespace OrvexXmlLib5
