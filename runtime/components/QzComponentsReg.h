#pragma once
// Registration of every control class of the runtime package, so that forms
// find them by name and the designer can create them.

// Registers the control bases, the forms and frames, and every component
// class of the suite with the class registry (and the model's classes they
// refer to). Safe to call more than once.
void RegisterQzComponentClasses();
