#include "rtl/Persistent.h"

TMetaClass* TObject::ClassInfo()
{
    static TMetaClass meta("TObject", nullptr);
    return &meta;
}

void TPersistent::Assign(TPersistent* source)
{
    if (source)
        source->AssignTo(this);
    else
        throw EConvertError("Cannot assign a nil to a " + ClassName());
}

void TPersistent::AssignTo(TPersistent* dest)
{
    throw EConvertError("Cannot assign a " + ClassName() + " to a " + (dest ? dest->ClassName() : AnsiString("nil")));
}

void TPersistent::DefineProperties(TFiler&) {}

AnsiString TPersistent::GetNamePath()
{
    AnsiString path = ClassName();
    if (TPersistent* owner = GetOwner()) {
        const AnsiString ownerPath = owner->GetNamePath();
        if (!ownerPath.empty())
            path = ownerPath + "." + path;
    }
    return path;
}

TPersistent* TPersistent::GetOwner()
{
    return nullptr;
}
