#pragma once
// How a designer host and a design package built as a plug-in recognise
// each other. The plug-in's objects use the host's classes, registries and
// editor framework directly, so a plug-in built against other versions of
// those headers would run on layouts it does not know; the host therefore
// reads the version the plug-in was built for before running any of its
// code, and refuses a plug-in of another version.

// Raise it whenever something a design package sees of the host changes in
// a way that old plug-ins would misread: a class or record of designide,
// rtl or the runtime they use, or the meaning of the entry points below.
inline constexpr int QzDesignInterfaceVersion = 1;

// The plug-in's exported symbols, looked up by these names: an int holding
// the interface version it was built for, and the function that makes its
// registrations (void(), called once).
inline constexpr const char* QzPackageVersionSymbol = "QzDesignPackageVersion";
inline constexpr const char* QzPackageRegisterSymbol = "QzDesignPackageRegister";
