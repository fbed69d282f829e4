#pragma once

// A compound widget that offers its focusable parts, in order, to a tab order.

#include <vector>

class TabOrderable;

class TabOrderableHost {
public:
    virtual ~TabOrderableHost() = default;

    // Appends the parts to `out`.
    virtual void getTabOrderables(std::vector<TabOrderable*>& out) = 0;
};
