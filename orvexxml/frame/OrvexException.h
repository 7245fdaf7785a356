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
    // Which of the position fields hold the place.
    enum Kind : unsigned char { Kind_None, Kind_Text, Kind_Binary };

    // Kind_Text: line and column are set; Kind_Binary: octetOffset is set; Kind_None: nothing is.
    Kind kind = Kind_None;
    // The line in the text, from 1; 0 unless kind is Kind_Text.
    std::uint64_t line = 0;
    // The column in the line, from 1; 0 unless kind is Kind_Text.
    std::uint64_t column = 0;
    // The offset of the first octet in the Fast Infoset input, from 0; 0 unless kind is Kind_Binary.
    std::uint64_t octetOffset = 0;

    // A place in XML text.
    static CSourceLocation InText(std::uint64_t line, std::uint64_t column);
    // A place in Fast Infoset input.
    static CSourceLocation InBinary(std::uint64_t octetOffset);

    // False for a default-made location (Kind_None).
    bool IsKnown() const { return kind != Kind_None; }
    // "line 12, column 5", "octet 1234", or empty when not known.
    std::string ToString() const;
};

// The root of every exception the library throws. Each level carries a message, an
// optional inner exception (the cause) and the place in the input where a read failed.
class ORVEXXML_API COrvexException : public std::exception
{
public:
    COrvexException();
    // An exception with message and no inner exception.
    explicit COrvexException(std::string message);
    // The inner exception is cloned, so it keeps its most derived class.
    COrvexException(std::string message, const COrvexException& inner);
    // Copies the message and the place, and clones the inner chain.
    COrvexException(const COrvexException& other);
    // The same as the copy; an exception assigned its own inner level stays valid.
    COrvexException& operator=(const COrvexException& other);
    ~COrvexException() override;

    // Copy of the message of this level alone.
    std::string GetMessageA() const { return m_message; }
    // The same as GetMessageA.
    std::string GetMessage() const { return m_message; }
    // One line per level, outermost first, no line feed at the end.
    std::string GetFullMessage() const;
    // Null when this exception has no inner exception.
    const COrvexException* GetInnerException() const { return m_inner; }
    // Where the read that failed had got to; not known for failures outside a read.
    // A chain built on the way up keeps the innermost known place.
    const CSourceLocation& GetLocation() const { return m_location; }
    // Replaces the place; an outer level built later takes it over from this one.
    void SetLocation(const CSourceLocation& location) { m_location = location; }

    // The message of this level alone, as GetMessage gives it.
    const char* what() const noexcept override { return m_message.c_str(); }

protected:
    // A new heap copy with the most derived type; the caller owns it.
    virtual COrvexException* Clone() const;
    // Clone reached from a derived class for another exception.
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
        /** An exception with no message and no inner exception. */                         \
        Name() = default;                                                                   \
        /** An exception with message and no inner exception. */                            \
        explicit Name(std::string message) : Base(std::move(message)) {}                    \
        /** An exception with message whose cause is inner; inner is cloned. */             \
        Name(std::string message, const COrvexException& inner)                             \
            : Base(std::move(message), inner) {}                                            \
        /** A copy of any exception of the family, taken over as this class. */             \
        Name(const COrvexException& other) : Base(other) {}                                 \
        /** Copies the message and the place, and clones the inner chain. */                \
        Name(const Name& other) = default;                                                  \
        /** The same as the copy. */                                                        \
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
