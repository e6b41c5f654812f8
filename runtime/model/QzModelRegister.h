#pragma once
// Registers the model's classes with the class registry, so that forms
// holding them can be read and editors bound to them. Safe to call more
// than once.
void RegisterQzModelClasses();
