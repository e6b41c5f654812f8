#include "design/strings/QzStringsReg.h"

void RegisterStringsWindows()
{
}
