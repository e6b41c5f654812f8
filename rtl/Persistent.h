#pragma once
// The roots of the class hierarchy: TObject knows its metaclass, TPersistent
// adds copying between objects and the hooks the filer and the designer use.

#include "rtl/TypInfo.h"

class TFiler;

class TObject {
    template <class, class>
    friend struct ::TClassTraits;

public:
    TObject() = default;
    virtual ~TObject() = default;
    // Objects are referred to, not copied; TPersistent::Assign copies state.
    TObject(const TObject&) = delete;
    TObject& operator=(const TObject&) = delete;

    static TMetaClass* ClassInfo();
    virtual TMetaClass* ClassType() const { return ClassInfo(); }
    const AnsiString& ClassName() const { return ClassType()->ClassName(); }
    bool ClassNameIs(const AnsiString& name) const { return ClassType()->ClassNameIs(name); }
    bool InheritsFrom(const TMetaClass* cls) const { return ClassType()->InheritsFrom(cls); }
};

class TPersistent : public TObject {
    QZ_CLASS(TPersistent, TObject)

public:
    // Copies source's state into this object. Unless a class knows the
    // source, it asks the source to AssignTo this object, whose default
    // raises EConvertError "Cannot assign a <Src> to a <Dst>".
    virtual void Assign(TPersistent* source);
    virtual void AssignTo(TPersistent* dest);
    // Lets a class stream data that is not a published property. The filer
    // calls it while reading and writing.
    virtual void DefineProperties(TFiler& filer);
    // The dotted path the object inspector shows: "Form1.Button1.Font".
    virtual AnsiString GetNamePath();
    virtual TPersistent* GetOwner();
};
