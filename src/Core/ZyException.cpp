// SPDX-License-Identifier: BSD-3-Clause
// The messages of the exception tree. They are composed here and nowhere else.
#include <ZyException.h>

class ZyException::Private : public ZyPrivateObject
{
public:
    Private() = default;
    explicit Private(ZyString const & text) : message(text) {}

    ZyString message;
};

ZyException::ZyException() : m_d(new Private) {}

ZyException::ZyException(ZyString const & message) : m_d(new Private(message)) {}

ZyException::ZyException(ZyException const & other)
    : ZyExceptionInterface(other), m_d(new Private(other.d()->message))
{}

ZyException::~ZyException() = default;

ZyException & ZyException::operator=(ZyException const & other)
{
    d()->message = other.d()->message;
    return *this;
}

ZyString const & ZyException::message() const
{
    return d()->message;
}

ZyException::operator ZyString const &() const
{
    return d()->message;
}

char const * ZyException::what() const
{
    return d()->message.c_str();
}

namespace
{
template <class N>
ZyString indexText(ZyString const & text, N index, N bound)
{
    return text + " [" + ZyString(index) + "," + ZyString(bound) + "]";
}

ZyString allocationText(ZyString const & reason)
{
    return reason.isEmpty() ? ZyString("Bad memory allocation") : "Bad memory allocation: " + reason;
}

ZyString const outOfBounds()
{
    return "Index out of bounds";
}
} // namespace

ZyNotFoundException::ZyNotFoundException() : ZyException("Item not found") {}

ZyNotFoundException::ZyNotFoundException(ZyString const & what) : ZyException("Item not found: " + what) {}

char const * ZyNotFoundException::name() const
{
    return "ZyNotFoundException";
}

ZyNotImplementedException::ZyNotImplementedException() : ZyException("Not implemented") {}

ZyNotImplementedException::ZyNotImplementedException(ZyString const & what)
    : ZyException("Not implemented: " + what)
{}

char const * ZyNotImplementedException::name() const
{
    return "ZyNotImplementedException";
}

ZyNullPointerException::ZyNullPointerException() = default;

ZyNullPointerException::ZyNullPointerException(ZyString const & message) : ZyException(message) {}

ZyNullPointerException::ZyNullPointerException(char const * message) : ZyException(message) {}

char const * ZyNullPointerException::name() const
{
    return "ZyNullPointerException";
}

ZyInvalidCallException::ZyInvalidCallException() = default;

ZyInvalidCallException::ZyInvalidCallException(ZyString const & message) : ZyException(message) {}

ZyInvalidCallException::ZyInvalidCallException(char const * message) : ZyException(message) {}

char const * ZyInvalidCallException::name() const
{
    return "ZyInvalidCallException";
}

ZyInvalidParameterException::ZyInvalidParameterException(ZyString const & message) : ZyException(message) {}

char const * ZyInvalidParameterException::name() const
{
    return "ZyInvalidParameterException";
}

ZyInvalidUseException::ZyInvalidUseException(ZyString const & message) : ZyException(message) {}

char const * ZyInvalidUseException::name() const
{
    return "ZyInvalidUseException";
}

ZyUndefinedFunctionException::ZyUndefinedFunctionException(ZyString const & message) : ZyException(message) {}

char const * ZyUndefinedFunctionException::name() const
{
    return "ZyUndefinedFunctionException";
}

ZyInvalidCastException::ZyInvalidCastException(ZyString const & from, ZyString const & to)
    : ZyException("Invalid cast from " + from + " to " + to)
{}

char const * ZyInvalidCastException::name() const
{
    return "ZyInvalidCastException";
}

ZyInvalidConversionException::ZyInvalidConversionException(ZyString const & message) : ZyException(message) {}

ZyInvalidConversionException::ZyInvalidConversionException(ZyString const & from, ZyString const & to)
    : ZyException("Invalid conversion from " + from + " to " + to)
{}

char const * ZyInvalidConversionException::name() const
{
    return "ZyInvalidConversionException";
}

ZyIndexOutOfBoundsException::ZyIndexOutOfBoundsException() : ZyException("Index out of bounds") {}

ZyIndexOutOfBoundsException::ZyIndexOutOfBoundsException(int index, int bound)
    : ZyException(indexText(outOfBounds(), index, bound))
{}

ZyIndexOutOfBoundsException::ZyIndexOutOfBoundsException(unsigned int index, unsigned int bound)
    : ZyException(indexText(outOfBounds(), index, bound))
{}

ZyIndexOutOfBoundsException::ZyIndexOutOfBoundsException(ZyString const & text, int index, int bound)
    : ZyException(indexText(text, index, bound))
{}

ZyIndexOutOfBoundsException::ZyIndexOutOfBoundsException(ZyString const & text, unsigned int index,
                                                         unsigned int bound)
    : ZyException(indexText(text, index, bound))
{}

char const * ZyIndexOutOfBoundsException::name() const
{
    return "ZyIndexOutOfBoundsException";
}

ZyBadAllocException::ZyBadAllocException(ZyString const & reason) : ZyException(allocationText(reason)) {}

ZyBadAllocException::ZyBadAllocException(std::bad_alloc const & failure)
    : ZyException(allocationText(failure.what()))
{}

char const * ZyBadAllocException::name() const
{
    return "ZyBadAllocException";
}

ZyStackLimitException::ZyStackLimitException() : ZyException("Stack limit reached") {}

char const * ZyStackLimitException::name() const
{
    return "ZyStackLimitException";
}

ZyUserCancelledException::ZyUserCancelledException() : ZyException("User cancelled") {}

ZyUserCancelledException::ZyUserCancelledException(ZyString const & message) : ZyException(message) {}

char const * ZyUserCancelledException::name() const
{
    return "ZyUserCancelledException";
}

ZyNoClipboardException::ZyNoClipboardException() : ZyException("No clipboard available") {}

ZyNoClipboardException::ZyNoClipboardException(ZyString const & message) : ZyException(message) {}

char const * ZyNoClipboardException::name() const
{
    return "ZyNoClipboardException";
}

ZyInvalidMimeDataException::ZyInvalidMimeDataException() : ZyException("No MIME data available available") {}

ZyInvalidMimeDataException::ZyInvalidMimeDataException(ZyString const & type)
    : ZyException("No MIME data of given type available: " + type)
{}

char const * ZyInvalidMimeDataException::name() const
{
    return "ZyInvalidMimeDataException";
}

ZyIOException::ZyIOException() = default;

ZyIOException::ZyIOException(ZyString const & message) : ZyException(message) {}

char const * ZyIOException::name() const
{
    return "ZyIOException";
}

ZyIOInvalidReadException::ZyIOInvalidReadException() = default;

ZyIOInvalidReadException::ZyIOInvalidReadException(ZyString const & message) : ZyException(message) {}

char const * ZyIOInvalidReadException::name() const
{
    return "ZyIOInvalidReadException";
}

ZyIOInvalidWriteException::ZyIOInvalidWriteException() = default;

ZyIOInvalidWriteException::ZyIOInvalidWriteException(ZyString const & message) : ZyException(message) {}

char const * ZyIOInvalidWriteException::name() const
{
    return "ZyIOInvalidWriteException";
}

ZyMathsException::ZyMathsException() : ZyException("Maths error") {}

ZyMathsException::ZyMathsException(ZyString const & message) : ZyException(message) {}

char const * ZyMathsException::name() const
{
    return "ZyMathsException";
}

ZyDomainException::ZyDomainException() : ZyMathsException("Invalid operation") {}

ZyDomainException::ZyDomainException(ZyString const & message) : ZyMathsException(message) {}

ZyDomainException::ZyDomainException(double value, double low, double high)
    : ZyMathsException("Value (" + ZyString::ToString(value) + ") is outside range [" +
                       ZyString::ToString(low) + ", " + ZyString::ToString(high) + "]")
{}

char const * ZyDomainException::name() const
{
    return "ZyDomainException";
}

ZyDivideByZeroException::ZyDivideByZeroException() : ZyMathsException("Divide by zero") {}

char const * ZyDivideByZeroException::name() const
{
    return "ZyDivideByZeroException";
}

ZyInvalidOperationMathsException::ZyInvalidOperationMathsException() : ZyMathsException("Invalid operation")
{}

ZyInvalidOperationMathsException::ZyInvalidOperationMathsException(ZyString const & message)
    : ZyMathsException(message)
{}

char const * ZyInvalidOperationMathsException::name() const
{
    return "ZyInvalidOperationMathsException";
}

ZyOverflowException::ZyOverflowException() : ZyMathsException("Overflow - result too large") {}

ZyOverflowException::ZyOverflowException(ZyString const & message) : ZyMathsException(message) {}

char const * ZyOverflowException::name() const
{
    return "ZyOverflowException";
}

ZyUnderflowException::ZyUnderflowException() : ZyMathsException("Underflow - result too small") {}

ZyUnderflowException::ZyUnderflowException(ZyString const & message) : ZyMathsException(message) {}

char const * ZyUnderflowException::name() const
{
    return "ZyUnderflowException";
}

ZyXMLException::ZyXMLException(ZyString const & message) : ZyException(message) {}

char const * ZyXMLException::name() const
{
    return "ZyXMLException";
}

ZyInvalidXMLException::ZyInvalidXMLException(ZyString const & reason)
    : ZyXMLException("Invalid XML: " + reason)
{}

ZyInvalidXMLException::ZyInvalidXMLException(ZyString const & reason, ZyString const & schema)
    : ZyXMLException("Invalid XML: " + reason + ", for schema: " + schema)
{}

char const * ZyInvalidXMLException::name() const
{
    return "ZyInvalidXMLException";
}

ZyInvalidXMLSchemaException::ZyInvalidXMLSchemaException(ZyString const & schema, ZyString const & reason)
    : ZyXMLException("Invalid XML schema: [" + schema + "] " + reason)
{}

char const * ZyInvalidXMLSchemaException::name() const
{
    return "ZyInvalidXMLSchemaException";
}

ZyInvalidXMLOperation::ZyInvalidXMLOperation(ZyString const & message) : ZyXMLException(message) {}

char const * ZyInvalidXMLOperation::name() const
{
    return "ZyInvalidXMLOperation";
}

ZyInvalidXMLAttributeName::ZyInvalidXMLAttributeName(ZyString const & attribute)
    : ZyXMLException("Invalid attribute name: " + attribute)
{}

char const * ZyInvalidXMLAttributeName::name() const
{
    return "ZyInvalidXMLAttributeName";
}

ZyUnknownXMLAttributeException::ZyUnknownXMLAttributeException(ZyString const & attribute)
    : ZyXMLException("Unknown attribute: " + attribute)
{}

char const * ZyUnknownXMLAttributeException::name() const
{
    return "ZyUnknownXMLAttributeException";
}

ZyUnknownXMLElementException::ZyUnknownXMLElementException(ZyString const & element)
    : ZyXMLException("Unknown element: " + element)
{}

char const * ZyUnknownXMLElementException::name() const
{
    return "ZyUnknownXMLElementException";
}

ZyNullDomElementException::ZyNullDomElementException() : ZyXMLException("Null dom element") {}

char const * ZyNullDomElementException::name() const
{
    return "ZyNullDomElementException";
}

ZyNullXMLStreamElementException::ZyNullXMLStreamElementException() : ZyXMLException("Null XML stream element")
{}

char const * ZyNullXMLStreamElementException::name() const
{
    return "ZyNullXMLStreamElementException";
}

ZyXMLDuplicateRuleException::ZyXMLDuplicateRuleException() : ZyXMLException("Duplicate rule for XML path") {}

char const * ZyXMLDuplicateRuleException::name() const
{
    return "ZyXMLDuplicateRuleException";
}
