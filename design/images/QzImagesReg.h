#pragma once
// The images packages' windows (the images package editor, the memory image
// editor, image import): their part of Register, which installs their
// openers behind the editor-dialog seam. Registering again replaces them.
void RegisterImagesWindows();
