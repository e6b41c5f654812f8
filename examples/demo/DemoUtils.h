#ifndef DemoUtilsH
#define DemoUtilsH
#include <vcl.h>
AnsiString CustomerTitle(const AnsiString& name, const AnsiString& city);
#endif
