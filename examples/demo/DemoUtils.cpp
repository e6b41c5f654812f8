//---------------------------------------------------------------------------
// Helpers of the demo without a form: the project lists this unit, the
// designer shows no form for it.
#include "DemoUtils.h"
//---------------------------------------------------------------------------
AnsiString CustomerTitle(const AnsiString& name, const AnsiString& city)
{
    return name + " (" + city + ")";
}
