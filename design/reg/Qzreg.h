#pragma once
// The design package's entry: Register puts the runtime's components on the
// palette and binds the property and component editors, exactly once per
// load, in a fixed order that hosts may list (qzpkg registrations).

// Makes every registration call of the package, in order: the four
// palette pages, the global property editors, then the bindings of single
// properties and the component editors. Creates nothing else.
void Register();

// The C entry point the designer host looks up in the plug-in
// (dclQzCtrls_c6): calls Register. Defined in the plug-in only; programs
// that link the package's core call Register themselves.
extern "C" void QzDesignPackageRegister();
