#include "platform/linux/x11/X11Struts.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tarragon {

namespace {

struct Sides {
    explicit Sides(const Rect& rect)
        : left(rect.origin.x)
        , top(rect.origin.y)
        , right(rect.origin.x + rect.size.width)
        , bottom(rect.origin.y + rect.size.height) { }

    bool areEmpty() const { return right <= left || bottom <= top; }
    bool meet(const Sides& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }

    double left, top, right, bottom;
};

Rect areaAlong(X11Edge edge, double thickness, double begin, double end, const Size& root) {
    const double length = end - begin;
    switch (edge) {
    case X11Edge::Left:
        return {{0, begin}, {thickness, length}};
    case X11Edge::Right:
        return {{root.width - thickness, begin}, {thickness, length}};
    case X11Edge::Top:
        return {{begin, 0}, {length, thickness}};
    case X11Edge::Bottom:
        return {{begin, root.height - thickness}, {length, thickness}};
    }
    return {};
}

Sides without(Sides free, const X11Strut& strut) {
    const Sides taken(strut.area);
    switch (strut.edge) {
    case X11Edge::Left:
        free.left = taken.right;
        break;
    case X11Edge::Right:
        free.right = taken.left;
        break;
    case X11Edge::Top:
        free.top = taken.bottom;
        break;
    case X11Edge::Bottom:
        free.bottom = taken.top;
        break;
    }
    return free;
}

} // namespace

std::vector<X11Strut> strutsOfProperty(const std::vector<std::uint32_t>& numbers, const Size& root) {
    constexpr std::array edges{X11Edge::Left, X11Edge::Right, X11Edge::Top, X11Edge::Bottom};
    constexpr std::size_t NumbersWithSpans = 12;
    if (numbers.size() < edges.size())
        return {};
    std::vector<X11Strut> struts;
    for (std::size_t index = 0; index < edges.size(); ++index) {
        const bool isColumn = edges[index] == X11Edge::Left || edges[index] == X11Edge::Right;
        const double thickness = numbers[index];
        double begin = 0;
        double end = isColumn ? root.height : root.width;
        if (numbers.size() >= NumbersWithSpans) {
            const std::size_t span = edges.size() + 2 * index;
            begin = numbers[span];
            end = double(numbers[span + 1]) + 1; // the last pixel belongs to it
        }
        if (thickness > 0 && end > begin)
            struts.push_back({edges[index], areaAlong(edges[index], thickness, begin, end, root)});
    }
    return struts;
}

std::vector<X11Strut> strutsAlongside(const std::vector<X11Strut>& struts, const Rect& panel) {
    std::vector<X11Strut> result = struts;
    for (X11Strut& strut : result) {
        Sides area(strut.area);
        const Sides taken(panel);
        if (taken.areEmpty() || !area.meet(taken))
            continue;
        const bool isColumn = strut.edge == X11Edge::Left || strut.edge == X11Edge::Right;
        double& begin = isColumn ? area.top : area.left;
        double& end = isColumn ? area.bottom : area.right;
        begin = std::max(begin, isColumn ? taken.top : taken.left);
        end = std::min(end, isColumn ? taken.bottom : taken.right);
        strut.area = {{area.left, area.top}, {area.right - area.left, area.bottom - area.top}};
    }
    return result;
}

Rect rectWithoutStruts(const Rect& monitor, const std::vector<X11Strut>& struts) {
    Sides free(monitor);
    for (const X11Strut& strut : struts) {
        if (!Sides(monitor).meet(Sides(strut.area)))
            continue;
        Sides rest = without(free, strut);
        // Of two panels at one edge the thicker one counts.
        rest.left = std::max(rest.left, free.left);
        rest.top = std::max(rest.top, free.top);
        rest.right = std::min(rest.right, free.right);
        rest.bottom = std::min(rest.bottom, free.bottom);
        if (!rest.areEmpty())
            free = rest;
    }
    return {{free.left, free.top}, {free.right - free.left, free.bottom - free.top}};
}

} // namespace tarragon
