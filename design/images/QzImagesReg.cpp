#include "design/images/QzImagesReg.h"

void RegisterImagesWindows()
{
}
