#include "design/strings/QzStringsReg.h"

#include "design/strings/Qzvtmemorylabeladdmultiline.h"

void RegisterStringsWindows()
{
    RegisterQzvtmultiline();
}
