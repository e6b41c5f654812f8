#pragma once
// Installs the runtime's own windows (memo, image, rich text and help) as
// the windows the editors open, so the application's verbs and the mask
// editor's help reach them in the designer.

void RegisterQzvtruntimewindows();
