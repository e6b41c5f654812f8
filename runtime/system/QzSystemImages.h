#pragma once
// The built-in "System" pictures: the small 16x16 pictures the sample menu
// and the editors show by Id (48 to 57), drawn by the runtime itself.

#include "rtl/System.h"

#include <vector>

class TQzPkgImages;

struct TQzSystemImage {
    Integer Id;
    const char* Name;   // what it shows, for the catalogue
};

const std::vector<TQzSystemImage>& QzSystemImages();

// Fills target with the built-in pictures, protected; images of the same Id
// are written over, others stay.
void QzFillSystemImages(TQzPkgImages& target);
