#pragma once
// A flag or level that holds a value while a scope runs, however the scope
// ends (an exception included), and gets its old value back afterwards.

template <class T>
class TScopedValue {
public:
    TScopedValue(T& target, T value) : FTarget(target), FOld(target) { target = value; }
    ~TScopedValue() { FTarget = FOld; }
    TScopedValue(const TScopedValue&) = delete;
    TScopedValue& operator=(const TScopedValue&) = delete;

private:
    T& FTarget;
    T FOld;
};
