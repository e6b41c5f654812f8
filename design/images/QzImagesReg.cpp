#include "design/images/QzImagesReg.h"

#include "design/images/Qzvtmemoryimage.h"
#include "design/images/Qzvtpkgimages.h"

void RegisterImagesWindows()
{
    RegisterQzvtpkgimages();
    RegisterQzvtmemoryimage();
}
