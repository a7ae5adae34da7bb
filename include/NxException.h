// The failure family of the library. Every failure is thrown by value as one
// of these classes; a failure may own one inner failure, so that a chain
// records the path from the outermost operation down to the cause.
#pragma once

#include <string>

namespace NxXmlLib9 {

class CNxException {
public:
    CNxException();
    explicit CNxException(std::string message);
    CNxException(std::string message, const CNxException& inner);
    CNxException(const CNxException& other);
    virtual ~CNxException();

    CNxException& operator=(const CNxException& other);

    // A heap copy of the most derived class; the only way an inner failure
    // is ever copied. The caller owns the result.
    virtual CNxException* Clone() const;

    std::string GetMessage() const;
    // The inner failure, still owned by this object, or null.
    CNxException* GetInnerException() const;
    // This message, then one line per inner level, outermost first.
    std::string GetFullMessage() const;

private:
    std::string m_message;
    CNxException* m_inner;
};

// Shared body of the derived classes: the constructors of the root and a
// Clone that copies the most derived class. Each named class below adds only
// its converting constructor, which a using-declaration cannot inherit.
template <class Derived, class Base>
class CNxExceptionOf : public Base {
public:
    CNxExceptionOf() = default;
    explicit CNxExceptionOf(std::string message) : Base(std::move(message)) {}
    CNxExceptionOf(std::string message, const CNxException& inner) : Base(std::move(message), inner) {}
    CNxExceptionOf(const CNxException& other) : Base(other) {}
    CNxException* Clone() const override { return new Derived(static_cast<const Derived&>(*this)); }
};

#define NXXML_EXCEPTION_CLASS(Name, Base)                                   \
    class Name : public CNxExceptionOf<Name, Base> {                        \
    public:                                                                 \
        using CNxExceptionOf<Name, Base>::CNxExceptionOf;                   \
        Name(const CNxException& other) : CNxExceptionOf<Name, Base>(other) {} \
    }

// A document or object that does not fit its schema.
NXXML_EXCEPTION_CLASS(CNxValidationException, CNxException);
// A text that cannot become a value.
NXXML_EXCEPTION_CLASS(CNxInvalidValueException, CNxValidationException);
// A namespace outside what a wildcard or an element allows.
NXXML_EXCEPTION_CLASS(CNxInvalidNamespaceException, CNxValidationException);
// An operation that is not legal in the object's present state.
NXXML_EXCEPTION_CLASS(CNxInvalidStateException, CNxException);
// An argument out of range.
NXXML_EXCEPTION_CLASS(CNxInvalidParamException, CNxException);
// A decimal that does not fit the requested native type.
NXXML_EXCEPTION_CLASS(CNxOverFlowException, CNxException);

#undef NXXML_EXCEPTION_CLASS

} // namespace NxXmlLib9
