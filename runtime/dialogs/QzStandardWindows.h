#pragma once
// Installs the calculator and calendar windows as the application object's
// standard windows (TQzCApplication::Calculator and Calendar), and the box
// that shows package messages. Hosts call it once at start; the model
// itself knows no windows.

void RegisterQzStandardWindows();
