// TComponentEditor, the default editor, and which editor a component gets.

#include "designide/DesignEditors.h"

#include <array>

void TComponentEditor::Edit()
{
    if (GetVerbCount() > 0)
        ExecuteVerb(0);
}

void TDefaultEditor::Edit()
{
    // The events a double-click most likely means, best first.
    static const std::array<const char*, 3> preferred = {"OnCreate", "OnChange", "OnClick"};
    std::unique_ptr<TPropertyEditor> chosen;
    std::size_t chosenRank = preferred.size();
    GetComponentProperties(
        {Component()}, Designer(),
        [&](std::unique_ptr<TPropertyEditor> editor) {
            std::size_t rank = preferred.size();
            for (std::size_t i = 0; i < preferred.size(); ++i)
                if (SameText(editor->GetName(), preferred[i]))
                    rank = i;
            if (!chosen || rank < chosenRank) {
                chosen = std::move(editor);
                chosenRank = rank;
            }
        },
        TTypeKinds{tkMethod});
    if (chosen)
        chosen->Edit();
}

TComponentEditorClass GetComponentEditorClass(const TMetaClass* componentClass)
{
    const TComponentEditorBinding* best = nullptr;
    int bestDistance = 0;
    for (const TComponentEditorBinding& binding : DesignRegistry().ComponentEditors()) {
        int distance = 0;
        const TMetaClass* c = componentClass;
        while (c && c != binding.ComponentClass) {
            c = c->ClassParent();
            ++distance;
        }
        // The later of two equally near bindings wins, hence <=.
        if (c && (!best || distance <= bestDistance)) {
            best = &binding;
            bestDistance = distance;
        }
    }
    return best ? best->EditorClass : EditorClass<TDefaultEditor>();
}

std::unique_ptr<TComponentEditor> GetComponentEditor(TComponent* component, IDesigner* designer)
{
    QZ_ASSERT(component != nullptr, "GetComponentEditor: no component");
    return GetComponentEditorClass(component->ClassType()).Create(component, designer);
}
