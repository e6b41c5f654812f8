#pragma once
// Exceptions and the string, number and file-name helpers of the class
// library, with the semantics the suite's code expects.

#include "rtl/System.h"

#include <exception>
#include <string>

// Base of every exception the class library raises. Message() is the text a
// user sees; what() returns the same text.
class Exception : public std::exception {
public:
    explicit Exception(AnsiString msg) : FMessage(std::move(msg)) {}
    const AnsiString& Message() const noexcept { return FMessage; }
    void SetMessage(AnsiString msg) { FMessage = std::move(msg); }
    const char* what() const noexcept override { return FMessage.c_str(); }

private:
    AnsiString FMessage;
};

#define QZ_DECLARE_EXCEPTION(Name, Base) \
    class Name : public Base {           \
    public:                              \
        using Base::Base;                \
    }

QZ_DECLARE_EXCEPTION(EConvertError, Exception);
QZ_DECLARE_EXCEPTION(EInvalidOperation, Exception);
QZ_DECLARE_EXCEPTION(EInvalidCast, Exception);
QZ_DECLARE_EXCEPTION(EListError, Exception);
QZ_DECLARE_EXCEPTION(EStringListError, Exception);
QZ_DECLARE_EXCEPTION(EComponentError, Exception);
QZ_DECLARE_EXCEPTION(EAssertionFailed, Exception);
QZ_DECLARE_EXCEPTION(EInOutError, Exception);
QZ_DECLARE_EXCEPTION(EStreamError, Exception);
QZ_DECLARE_EXCEPTION(EFileStreamError, EStreamError);
QZ_DECLARE_EXCEPTION(EFCreateError, EFileStreamError);
QZ_DECLARE_EXCEPTION(EFOpenError, EFileStreamError);
QZ_DECLARE_EXCEPTION(EReadError, EStreamError);
QZ_DECLARE_EXCEPTION(EWriteError, EStreamError);
QZ_DECLARE_EXCEPTION(EFilerError, EStreamError);
QZ_DECLARE_EXCEPTION(EClassNotFound, EFilerError);
QZ_DECLARE_EXCEPTION(EInvalidImage, EFilerError);
QZ_DECLARE_EXCEPTION(EParserError, Exception);
QZ_DECLARE_EXCEPTION(EPropertyError, Exception);
QZ_DECLARE_EXCEPTION(EVariantError, Exception);

// Floating point
// FloatToStr writes the shortest form of up to 15 significant digits, with
// '.' as decimal separator and an exponent only where the digits would not
// show the value ("1E20", "1.5E-5"), as forms and package files store floats.
AnsiString FloatToStr(Extended value);
// Accepts what FloatToStr writes and the usual decimal forms; raises
// EConvertError "'<text>' is not a valid floating point value".
Extended StrToFloat(const AnsiString& text);
bool TryStrToFloat(const AnsiString& text, Extended& value);
