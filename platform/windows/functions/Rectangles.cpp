// The rectangle functions of <windows.h>. They compare and copy and never compute, so that no coordinate is out
// of their range.
#include <windows.h>

#include <algorithm>

BOOL IntersectRect(RECT* target, const RECT* first, const RECT* second)
{
    if (target == nullptr || first == nullptr || second == nullptr) {
        return FALSE;
    }
    const RECT overlap = {std::max(first->left, second->left), std::max(first->top, second->top),
                          std::min(first->right, second->right), std::min(first->bottom, second->bottom)};
    const bool empty = overlap.left >= overlap.right || overlap.top >= overlap.bottom;
    *target = empty ? RECT{} : overlap;
    return empty ? FALSE : TRUE;
}

BOOL SetRect(RECT* target, int left, int top, int right, int bottom)
{
    if (target == nullptr) {
        return FALSE;
    }
    *target = {left, top, right, bottom};
    return TRUE;
}
