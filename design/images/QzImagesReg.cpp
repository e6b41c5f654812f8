#include "design/images/QzImagesReg.h"

#include "design/images/Qzvtpkgimages.h"

void RegisterImagesWindows()
{
    RegisterQzvtpkgimages();
}
