#pragma once
// The settings a package publishes as one object (the setup's keys and
// database conventions, the language's locale). Their values are a plain
// struct that copies and compares itself; the object around it checks a
// new value, keeps it, and tells its package.

#include "runtime/model/QzPkgInfo.h"

template <class TValues>
class TQzPkgSettings : public TPersistent {
public:
    using Values_t = TValues;

    const TValues& Values() const { return FValues; }
    // Raises EQzPkgError for a value the settings refuse, keeping the old one.
    void SetValues(const TValues& value)
    {
        if (value == FValues)
            return;
        CheckValues(value);
        FValues = value;
        if (FOwner)
            FOwner->Change();
    }

    bool operator==(const TQzPkgSettings& other) const { return FValues == other.FValues; }

    void Assign(TPersistent* source) override
    {
        if (auto* other = dynamic_cast<TQzPkgSettings*>(source))
            SetValues(other->FValues);
        else
            TPersistent::Assign(source);
    }

    // Raises EQzPkgError naming the first value the settings cannot hold.
    virtual void CheckValues(const TValues& values) const = 0;

protected:
    explicit TQzPkgSettings(TQzPkgInfo* owner, const TValues& values = {}) : FOwner(owner), FValues(values) {}

    // One value changed, as a change of them all.
    template <class V>
    void Set(V TValues::*field, const V& value)
    {
        TValues v = FValues;
        v.*field = value;
        SetValues(v);
    }

private:
    TQzPkgInfo* FOwner;
    TValues FValues;
};
