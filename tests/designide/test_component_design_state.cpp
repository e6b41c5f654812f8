// State the design side keeps per component: it must go with its
// component, whichever of the two is freed first.

#include "designide/ComponentDesignState.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

TEST(ComponentDesignState, AnEntryGoesWhenItsComponentIsFreed)
{
    TComponentDesignState<std::string> state;
    auto owner = std::make_unique<TComponent>(nullptr);
    auto* menu = new TComponent(owner.get());
    auto* other = new TComponent(owner.get());
    state[menu] = "editor of the menu";
    state[other] = "editor of the other";
    EXPECT_EQ(*state.Find(menu), "editor of the menu");

    delete menu;
    EXPECT_EQ(state.Find(menu), nullptr);
    EXPECT_EQ(state.Count(), 1u);
    // Freeing the owner frees what it owns, the other one too.
    owner.reset();
    EXPECT_EQ(state.Count(), 0u);
}

TEST(ComponentDesignState, RemovedOrOutlivedEntriesLeaveTheComponentAlone)
{
    auto component = std::make_unique<TComponent>(nullptr);
    {
        TComponentDesignState<int> state;
        state[component.get()] = 1;
        state.Remove(component.get());
        EXPECT_EQ(state.Find(component.get()), nullptr);
        state[component.get()] = 2;
        EXPECT_EQ(*state.Find(component.get()), 2);
    }
    // The state went first: freeing the component must not call back into it.
    component.reset();
}

} // namespace
