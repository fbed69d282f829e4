#pragma once

// Something the user can pick up and drop elsewhere: a widget mixes this in so that whatever
// receives the drop can ask what kind of thing it holds.

using DragDropItemType = int;

class DragDropItem {
public:
    virtual ~DragDropItem() = default;
    virtual DragDropItemType dragDropType() const = 0;
};
