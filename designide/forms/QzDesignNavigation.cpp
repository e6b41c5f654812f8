#include "designide/forms/QzDesignNavigation.h"

#include "designide/forms/QzControlInfo.h"

#include <algorithm>
#include <cstdlib>

namespace {

// Doubled, so the centre of an odd size stays a whole number.
QPoint Centre2(const QRect& r) { return QPoint(2 * r.left() + r.width(), 2 * r.top() + r.height()); }

// Whether the centre c (doubled) lies beyond r's edge on the side (dx, dy).
bool Beyond(const QRect& r, const QPoint& c, int dx, int dy)
{
    return (dx < 0 && c.x() < 2 * r.left()) || (dx > 0 && c.x() > 2 * (r.left() + r.width())) ||
           (dy < 0 && c.y() < 2 * r.top()) || (dy > 0 && c.y() > 2 * (r.top() + r.height()));
}

}  // namespace

TComponent* QzDesignParent(TComponent* root, TComponent* component)
{
    TComponent* parent = component->GetParentComponent();
    return parent ? parent : root;
}

std::vector<TComponent*> QzComponentsOn(TComponent* root, TComponent* parent)
{
    std::vector<TComponent*> on;
    for (int i = 0; i < root->ComponentCount(); ++i)
        if (QzDesignParent(root, root->Components(i)) == parent)
            on.push_back(root->Components(i));
    return on;
}

std::vector<TComponent*> QzSelectAllOf(TComponent* root, TComponent* selected)
{
    return QzComponentsOn(root, !selected || selected == root ? root : QzDesignParent(root, selected));
}

TComponent* QzNearestSibling(TComponent* root, TComponent* component, int dx, int dy)
{
    if (!component || component == root)
        return nullptr;
    const QRect start = QzDesignRect(component);
    const QPoint from = Centre2(start);
    TComponent* nearest = nullptr;
    long best = 0;
    for (TComponent* other : QzComponentsOn(root, QzDesignParent(root, component))) {
        const QPoint centre = Centre2(QzDesignRect(other));
        if (other == component || !Beyond(start, centre, dx, dy))
            continue;
        const QPoint d = centre - from;
        const long along = long(d.x()) * dx + long(d.y()) * dy;
        // Straying sideways counts double: the control beside wins over a
        // nearer one further up or down.
        const long score = along + 2L * std::abs(dx != 0 ? d.y() : d.x());
        if (!nearest || score < best) {
            nearest = other;
            best = score;
        }
    }
    return nearest;
}

TComponent* QzNextSibling(TComponent* root, TComponent* component, bool forward)
{
    if (!component || component == root) {
        const std::vector<TComponent*> top = QzComponentsOn(root, root);
        if (top.empty())
            return nullptr;
        return forward ? top.front() : top.back();
    }
    const std::vector<TComponent*> siblings = QzComponentsOn(root, QzDesignParent(root, component));
    const auto at = std::find(siblings.begin(), siblings.end(), component);
    if (at == siblings.end())
        return nullptr;
    const long n = long(siblings.size());
    const long i = long(at - siblings.begin());
    return siblings[size_t((i + (forward ? 1 : n - 1)) % n)];
}
