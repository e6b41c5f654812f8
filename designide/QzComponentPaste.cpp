#include "designide/QzComponentPaste.h"

#include "rtl/Filer.h"
#include "rtl/TypInfo.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <map>
#include <set>
#include <utility>

namespace {

struct TNameLess {
    bool operator()(const AnsiString& a, const AnsiString& b) const { return CompareText(a, b) < 0; }
};
using TNames = std::set<AnsiString, TNameLess>;
using TRenames = std::map<AnsiString, AnsiString, TNameLess>;

TMetaClass* RegisteredClass(const TQzStreamNode& node)
{
    TMetaClass* cls = GetClass(node.Header.ClassName);
    return cls && cls->CanCreate() && cls->InheritsFrom(TComponent::ClassInfo()) ? cls : nullptr;
}

// As the designer tells them apart once read: a registered class says
// itself, an unregistered one is a control when the stream gives it a size.
// The controls' base class is asked of the class registry by name: the
// host interfaces are built over the class library alone, without the
// runtime that defines it.
bool IsControl(const TQzStreamNode& node)
{
    if (TMetaClass* cls = RegisteredClass(node)) {
        const TMetaClass* control = GetClass("TControl");
        return control && cls->InheritsFrom(control);
    }
    return node.Property("Width") || node.Property("Height");
}

// The pasted components the form will own: an inline frame owns what is
// inside it, and its names are its own business.
void ForEachOwned(std::vector<TQzStreamNode>& nodes, const std::function<void(TQzStreamNode&)>& proc)
{
    for (TQzStreamNode& node : nodes) {
        proc(node);
        if (!(node.Header.Flags & ffInline))
            ForEachOwned(node.Children, proc);
    }
}

// The name without its number, as the designer numbers new components; a
// component without a name is named after its class.
AnsiString BaseName(const TQzStreamNode& node)
{
    AnsiString base = node.Header.ObjectName;
    while (!base.empty() && std::isdigit(static_cast<unsigned char>(base.back())))
        base.pop_back();
    if (base.empty()) {
        base = node.Header.ClassName;
        if (base.size() > 1 && (base[0] == 'T' || base[0] == 't'))
            base.erase(0, 1);
    }
    return base;
}

AnsiString FreeName(const AnsiString& base, const TNames& names)
{
    for (int i = 1;; ++i)
        if (AnsiString name = base + IntToStr(i); !names.count(name))
            return name;
}

// Gives every pasted component a name free in the form; names lists every
// name the form will have. Returns the old names of the renamed ones.
TRenames AssignNames(std::vector<TQzStreamNode>& pasted, TNames& names)
{
    std::vector<TQzStreamNode*> owned;
    ForEachOwned(pasted, [&](TQzStreamNode& node) { owned.push_back(&node); });
    // Those whose names are free keep them, so no renamed one takes a name
    // a later one brought along.
    std::vector<TQzStreamNode*> renamed;
    TNames kept;
    for (TQzStreamNode* node : owned) {
        const AnsiString& name = node->Header.ObjectName;
        if (!name.empty() && !names.count(name) && kept.insert(name).second)
            continue;
        renamed.push_back(node);
    }
    names.insert(kept.begin(), kept.end());
    TRenames renames;
    for (TQzStreamNode* node : renamed) {
        const AnsiString name = FreeName(BaseName(*node), names);
        names.insert(name);
        // A reference names the first component of its name.
        if (!node->Header.ObjectName.empty() && !kept.count(node->Header.ObjectName))
            renames.emplace(node->Header.ObjectName, name);
        node->Header.ObjectName = name;
    }
    return renames;
}

// Points a property's references among the pasted components at their
// new names; true when it refers to a component the form does not have
// and has to go. Only properties that may hold a reference are touched:
// an identifier of an enumeration may spell a component's name.
bool RetargetProperty(TStreamedProperty& property, TMetaClass* cls, const TQzIdentMap& rename, const TNames& names)
{
    const bool nested = property.Name.find('.') != AnsiString::npos;
    const TPropInfo* info = cls && !nested ? GetPropInfo(cls, property.Name) : nullptr;
    if (info && info->PropType->Kind != tkClass)
        return false;
    property.Raw = QzRenameIdents(property.Raw, rename);
    if (!info)
        return false;   // defined by the class, or the class is unknown: kept
    const auto target = QzIdentValue(property.Raw);
    return target && target->find('.') == AnsiString::npos && !names.count(*target);
}

void Retarget(std::vector<TQzStreamNode>& pasted, const TRenames& renames, const TNames& names)
{
    const TQzIdentMap rename = [&](const AnsiString& ident) -> std::optional<AnsiString> {
        const auto it = renames.find(ident);
        return it == renames.end() ? std::nullopt : std::optional<AnsiString>(it->second);
    };
    ForEachOwned(pasted, [&](TQzStreamNode& node) {
        TMetaClass* cls = RegisteredClass(node);
        auto& props = node.Properties;
        props.erase(std::remove_if(props.begin(), props.end(),
                                   [&](TStreamedProperty& p) { return RetargetProperty(p, cls, rename, names); }),
                    props.end());
        // A pasted component is new: not one an ancestor form made.
        node.Header.Flags &= Byte(~(ffInherited | ffChildPos));
        node.Header.Position = -1;
    });
}

TQzStreamNode& FindNode(TQzStreamNode& form, TComponent* root, TComponent* component)
{
    std::vector<AnsiString> path;
    for (TComponent* c = component; c && c != root; c = c->GetParentComponent())
        path.push_back(c->Name());
    TQzStreamNode* node = &form;
    for (auto name = path.rbegin(); name != path.rend(); ++name) {
        auto& children = node->Children;
        auto found = std::find_if(children.begin(), children.end(),
                                  [&](const TQzStreamNode& child) { return SameText(child.Header.ObjectName, *name); });
        if (found == children.end())
            return form;
        node = &*found;
    }
    return *node;
}

std::pair<Int64, Int64> Position(const TQzStreamNode& node)
{
    return {node.IntegerValue("Left").value_or(0), node.IntegerValue("Top").value_or(0)};
}

void MoveBy(TQzStreamNode& node, int delta)
{
    const auto [left, top] = Position(node);
    // A missing property goes first, so Top is set before Left.
    node.SetIntegerValue("Top", top + delta);
    node.SetIntegerValue("Left", left + delta);
}

bool LandsOnAnother(const TQzStreamNode& target, const std::vector<TQzStreamNode>& group)
{
    for (const TQzStreamNode& pasted : group)
        for (const TQzStreamNode& there : target.Children)
            if (SameText(there.Header.ClassName, pasted.Header.ClassName) && Position(there) == Position(pasted))
                return true;
    return false;
}

// The TabOrder after the last of target's controls: the form is read with
// the stream's numbers as they are, so a copy keeping its original's would
// share its place in the tab sequence.
Int64 NextTabOrder(const TQzStreamNode& target)
{
    Int64 next = 0;
    for (const TQzStreamNode& child : target.Children)
        if (const auto order = child.IntegerValue("TabOrder"))
            next = std::max(next, *order + 1);
    return next;
}

void Place(TQzStreamNode& target, std::vector<TQzStreamNode> group)
{
    // Bounded, should the target be tiled with copies.
    for (int i = 0; i < 64 && LandsOnAnother(target, group); ++i)
        for (TQzStreamNode& node : group)
            MoveBy(node, QzPasteOffset);
    for (TQzStreamNode& node : group) {
        if (node.IntegerValue("TabOrder"))
            node.SetIntegerValue("TabOrder", NextTabOrder(target));
        target.Children.push_back(std::move(node));
    }
}

}  // namespace

TQzPasteResult QzPasteIntoForm(TComponent* root, std::string_view formBinary, TComponent* container,
                               std::vector<TQzStreamNode> pasted)
{
    TQzStreamNode form = QzReadStreamTree(formBinary);
    TNames names{root->Name()};
    for (int i = 0; i < root->ComponentCount(); ++i)
        names.insert(root->Components(i)->Name());
    const TRenames renames = AssignNames(pasted, names);
    Retarget(pasted, renames, names);

    TQzPasteResult result;
    std::vector<TQzStreamNode> controls, others;
    for (TQzStreamNode& node : pasted) {
        result.Names.push_back(node.Header.ObjectName);
        (IsControl(node) ? controls : others).push_back(std::move(node));
    }
    // The container first: it lies inside the form's list of children.
    TQzStreamNode& holder = FindNode(form, root, container);
    if (&holder == &form)
        std::move(others.begin(), others.end(), std::back_inserter(controls));
    Place(holder, std::move(controls));
    if (&holder != &form)
        Place(form, std::move(others));
    result.Form = QzWriteStreamTree(form);
    return result;
}
