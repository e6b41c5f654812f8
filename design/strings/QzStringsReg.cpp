#include "design/strings/QzStringsReg.h"

#include "design/strings/Qzvtmemorylabel.h"
#include "design/strings/Qzvtmemorylabeladdmultiline.h"
#include "design/strings/Qzvtmemorymessage.h"
#include "design/strings/Qzvtmemorytext.h"
#include "design/strings/Qzvtpkgstrings.h"

void RegisterStringsWindows()
{
    RegisterQzvtmemorylabel();
    RegisterQzvtmemorymessage();
    RegisterQzvtmemorytext();
    RegisterQzvtmultiline();
    RegisterQzvtpkgstrings();
}
