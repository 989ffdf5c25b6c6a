// SPDX-License-Identifier: BSD-3-Clause
// The exception tree, without the classes that carry paths (ZyFileException.h) or values.
// Every class adds its name and its messages only: state belongs to the roots of the families.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZyString.h>

#include <new>

class ZyXMLPath;

/**
 * Root of everything that the library throws.
 *
 * It does not derive from the standard library's exception: code that must catch both needs two handlers.
 */
class ZYCORE_EXPORT ZyExceptionInterface
{
public:
    /** The name of the class, as it is written. */
    virtual char const * name() const = 0;
    /** The message; valid as long as the exception lives. */
    virtual char const * what() const = 0;

protected:
    ZyExceptionInterface() = default;
    ZyExceptionInterface(ZyExceptionInterface const &) = default;
    ZyExceptionInterface & operator=(ZyExceptionInterface const &) = default;
    ~ZyExceptionInterface() = default;
};

/**
 * Base of the tree: an exception with a message, composed once when it is thrown.
 *
 * Thrown by value, caught by reference: `catch (ZyException const & e)`. Copies share nothing. Composing a
 * message may itself run out of memory; then the standard allocation failure comes instead.
 */
class ZYCORE_EXPORT ZyException : public ZyExceptionInterface
{
public:
    /** An empty message. */
    ZyException();
    /** \a message is the whole message. */
    explicit ZyException(ZyString const & message);
    ZyException(ZyException const & other);
    ZyException & operator=(ZyException const & other);

    /** The text. */
    ZyString const & message() const;
    /** The same as message(). */
    operator ZyString const &() const;

    char const * name() const override = 0;
    char const * what() const override;
    virtual ~ZyException();

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};

/** Something that was searched for is not there. */
class ZYCORE_EXPORT ZyNotFoundException : public ZyException
{
public:
    /** "Item not found". */
    ZyNotFoundException();
    /** "Item not found: " and \a what. */
    explicit ZyNotFoundException(ZyString const & what);

    char const * name() const override;
};

/** An operation is not there. */
class ZYCORE_EXPORT ZyNotImplementedException : public ZyException
{
public:
    /** "Not implemented". */
    ZyNotImplementedException();
    /** "Not implemented: " and \a what. */
    explicit ZyNotImplementedException(ZyString const & what);

    char const * name() const override;
};

/** A null pointer was used. */
class ZYCORE_EXPORT ZyNullPointerException : public ZyException
{
public:
    /** An empty message. */
    ZyNullPointerException();
    /** \a message is the whole message. */
    explicit ZyNullPointerException(ZyString const & message);
    /** \a message is the whole message. */
    explicit ZyNullPointerException(char const * message);

    char const * name() const override;
};

/** A call came at the wrong time or on the wrong object. */
class ZYCORE_EXPORT ZyInvalidCallException : public ZyException
{
public:
    /** An empty message. */
    ZyInvalidCallException();
    /** \a message is the whole message. */
    explicit ZyInvalidCallException(ZyString const & message);
    /** \a message is the whole message. */
    explicit ZyInvalidCallException(char const * message);

    char const * name() const override;
};

/** An argument has a value that is not allowed. */
class ZYCORE_EXPORT ZyInvalidParameterException : public ZyException
{
public:
    /** \a message is the whole message. */
    explicit ZyInvalidParameterException(ZyString const & message);

    char const * name() const override;
};

/** Something was used in a way that is not allowed. */
class ZYCORE_EXPORT ZyInvalidUseException : public ZyException
{
public:
    /** \a message is the whole message. */
    explicit ZyInvalidUseException(ZyString const & message);

    char const * name() const override;
};

/** A function is not defined. */
class ZYCORE_EXPORT ZyUndefinedFunctionException : public ZyException
{
public:
    /** \a message is the whole message. */
    explicit ZyUndefinedFunctionException(ZyString const & message);

    char const * name() const override;
};

/** An object is of another class than asked for. */
class ZYCORE_EXPORT ZyInvalidCastException : public ZyException
{
public:
    /** "Invalid cast from " \a from " to " \a to. */
    ZyInvalidCastException(ZyString const & from, ZyString const & to);

    char const * name() const override;
};

/** A value cannot be turned into another kind. */
class ZYCORE_EXPORT ZyInvalidConversionException : public ZyException
{
public:
    /** \a message is the whole message. */
    explicit ZyInvalidConversionException(ZyString const & message);
    /** "Invalid conversion from " \a from " to " \a to. */
    ZyInvalidConversionException(ZyString const & from, ZyString const & to);

    char const * name() const override;
};

/** An index is outside its range. */
class ZYCORE_EXPORT ZyIndexOutOfBoundsException : public ZyException
{
public:
    /** "Index out of bounds". */
    ZyIndexOutOfBoundsException();
    /** "Index out of bounds [index,bound]". */
    ZyIndexOutOfBoundsException(int index, int bound);
    /** "Index out of bounds [index,bound]". */
    ZyIndexOutOfBoundsException(unsigned int index, unsigned int bound);
    /** \a text and " [index,bound]". */
    ZyIndexOutOfBoundsException(ZyString const & text, int index, int bound);
    /** \a text and " [index,bound]". */
    ZyIndexOutOfBoundsException(ZyString const & text, unsigned int index, unsigned int bound);

    char const * name() const override;
};

/** Memory ran out, where a function has decided to say so in this tree. */
class ZYCORE_EXPORT ZyBadAllocException : public ZyException
{
public:
    /** "Bad memory allocation", and ": " \a reason unless that is empty. */
    explicit ZyBadAllocException(ZyString const & reason);
    /** The same with the words of \a failure. */
    explicit ZyBadAllocException(std::bad_alloc const & failure);

    char const * name() const override;
};

/** The stack of the thread is nearly used up. */
class ZYCORE_EXPORT ZyStackLimitException : public ZyException
{
public:
    /** "Stack limit reached". */
    ZyStackLimitException();

    char const * name() const override;
};

/** The user does not want to go on. */
class ZYCORE_EXPORT ZyUserCancelledException : public ZyException
{
public:
    /** "User cancelled". */
    ZyUserCancelledException();
    /** \a message is the whole message. */
    explicit ZyUserCancelledException(ZyString const & message);

    char const * name() const override;
};

/** There is no clipboard. */
class ZYCORE_EXPORT ZyNoClipboardException : public ZyException
{
public:
    /** "No clipboard available". */
    ZyNoClipboardException();
    /** \a message is the whole message. */
    explicit ZyNoClipboardException(ZyString const & message);

    char const * name() const override;
};

/**
 * The clipboard holds no data of the wanted kind.
 *
 * \deliberate{mime-data-doubled-word} The default message says "available" twice: hosts compare the text.
 */
class ZYCORE_EXPORT ZyInvalidMimeDataException : public ZyException
{
public:
    /** "No MIME data available available". */
    ZyInvalidMimeDataException();
    /** "No MIME data of given type available: " and \a type. */
    explicit ZyInvalidMimeDataException(ZyString const & type);

    char const * name() const override;
};

/** A device failed. */
class ZYCORE_EXPORT ZyIOException : public ZyException
{
public:
    /** An empty message. */
    ZyIOException();
    /** \a message is the whole message. */
    explicit ZyIOException(ZyString const & message);

    char const * name() const override;
};

/**
 * A device was read that is not open for reading.
 *
 * \deliberate{invalid-read-is-no-io-exception} It is a misuse and no failure of the device, and so no ZyIOException: a
 * handler for device failures does not catch it.
 */
class ZYCORE_EXPORT ZyIOInvalidReadException : public ZyException
{
public:
    /** An empty message. */
    ZyIOInvalidReadException();
    /** \a message is the whole message. */
    explicit ZyIOInvalidReadException(ZyString const & message);

    char const * name() const override;
};

/**
 * A device was written that is not open for writing.
 *
 * \deliberate{invalid-write-is-no-io-exception} It is a misuse and no failure of the device, and so no ZyIOException: a
 * handler for device failures does not catch it.
 */
class ZYCORE_EXPORT ZyIOInvalidWriteException : public ZyException
{
public:
    /** An empty message. */
    ZyIOInvalidWriteException();
    /** \a message is the whole message. */
    explicit ZyIOInvalidWriteException(ZyString const & message);

    char const * name() const override;
};

/** A calculation failed. */
class ZYCORE_EXPORT ZyMathsException : public ZyException
{
public:
    /** "Maths error". */
    ZyMathsException();
    /** \a message is the whole message. */
    explicit ZyMathsException(ZyString const & message);

    char const * name() const override;
};

/**
 * An argument lies outside the range of a function.
 *
 * \deliberate{domain-default-words} The default message has the words of an invalid operation, under which hosts know
 * it.
 */
class ZYCORE_EXPORT ZyDomainException : public ZyMathsException
{
public:
    /** "Invalid operation". */
    ZyDomainException();
    /** \a message is the whole message. */
    explicit ZyDomainException(ZyString const & message);
    /** "Value (value) is outside range [low, high]", each as ZyString::ToString gives it. */
    ZyDomainException(double value, double low, double high);

    char const * name() const override;
};

/** A division by zero. */
class ZYCORE_EXPORT ZyDivideByZeroException : public ZyMathsException
{
public:
    /** "Divide by zero". */
    ZyDivideByZeroException();

    char const * name() const override;
};

/** An operation without a defined result. */
class ZYCORE_EXPORT ZyInvalidOperationMathsException : public ZyMathsException
{
public:
    /** "Invalid operation". */
    ZyInvalidOperationMathsException();
    /** \a message is the whole message. */
    explicit ZyInvalidOperationMathsException(ZyString const & message);

    char const * name() const override;
};

/** A result is too large. */
class ZYCORE_EXPORT ZyOverflowException : public ZyMathsException
{
public:
    /** "Overflow - result too large". */
    ZyOverflowException();
    /** \a message is the whole message. */
    explicit ZyOverflowException(ZyString const & message);

    char const * name() const override;
};

/** A result is too small. */
class ZYCORE_EXPORT ZyUnderflowException : public ZyMathsException
{
public:
    /** "Underflow - result too small". */
    ZyUnderflowException();
    /** \a message is the whole message. */
    explicit ZyUnderflowException(ZyString const & message);

    char const * name() const override;
};

/** Base of what XML documents and their writers report. */
class ZYCORE_EXPORT ZyXMLException : public ZyException
{
public:
    /** \a message is the whole message. */
    explicit ZyXMLException(ZyString const & message);

    char const * name() const override;
};

/** A document is not what it should be. */
class ZYCORE_EXPORT ZyInvalidXMLException : public ZyXMLException
{
public:
    /** "Invalid XML: " and \a reason. */
    explicit ZyInvalidXMLException(ZyString const & reason);
    /** "Invalid XML: " \a reason ", for schema: " \a schema. */
    ZyInvalidXMLException(ZyString const & reason, ZyString const & schema);

    char const * name() const override;
};

/** A schema cannot be used. */
class ZYCORE_EXPORT ZyInvalidXMLSchemaException : public ZyXMLException
{
public:
    /** "Invalid XML schema: [" \a schema "] " \a reason. */
    ZyInvalidXMLSchemaException(ZyString const & schema, ZyString const & reason);

    char const * name() const override;
};

/** A reader or writer was used in a state that does not allow it. */
class ZYCORE_EXPORT ZyInvalidXMLOperation : public ZyXMLException
{
public:
    /** \a message is the whole message. */
    explicit ZyInvalidXMLOperation(ZyString const & message);

    char const * name() const override;
};

/** A name cannot be that of an attribute here. */
class ZYCORE_EXPORT ZyInvalidXMLAttributeName : public ZyXMLException
{
public:
    /** "Invalid attribute name: " and \a attribute. */
    explicit ZyInvalidXMLAttributeName(ZyString const & attribute);

    char const * name() const override;
};

/** An element has no attribute of the name. */
class ZYCORE_EXPORT ZyUnknownXMLAttributeException : public ZyXMLException
{
public:
    /** "Unknown attribute: " and \a attribute. */
    explicit ZyUnknownXMLAttributeException(ZyString const & attribute);

    char const * name() const override;
};

/** There is no element of the name. */
class ZYCORE_EXPORT ZyUnknownXMLElementException : public ZyXMLException
{
public:
    /** "Unknown element: " and \a element. */
    explicit ZyUnknownXMLElementException(ZyString const & element);

    char const * name() const override;
};

/** An element of a document tree is null. */
class ZYCORE_EXPORT ZyNullDomElementException : public ZyXMLException
{
public:
    /** "Null dom element". */
    ZyNullDomElementException();

    char const * name() const override;
};

/** An element of a stream is null. */
class ZYCORE_EXPORT ZyNullXMLStreamElementException : public ZyXMLException
{
public:
    /** "Null XML stream element". */
    ZyNullXMLStreamElementException();

    char const * name() const override;
};

/** Two rules claim one path. */
class ZYCORE_EXPORT ZyXMLDuplicateRuleException : public ZyXMLException
{
public:
    /** "Duplicate rule for XML path". */
    ZyXMLDuplicateRuleException();
    /** "Duplicate rule for XML path: " and \a path. */
    explicit ZyXMLDuplicateRuleException(ZyXMLPath const & path);

    char const * name() const override;
};
