#include "buttons/CheckboxRadioSetManager.h"

#include "glib/UpdateDeferrer.h"

void CheckboxRadioSetManager::add(RadioSetCheckbox* box) {
    boxes_.push_back(Entry{box, box->getIdStamp()});
    box->setUserFunction(&CheckboxRadioSetManager::userFunction, this);
}

int CheckboxRadioSetManager::getSelected() const {
    for (unsigned i = 0; i < boxes_.size(); ++i)
        if (isLive(boxes_[i]) && boxes_[i].box->getState())
            return int(i);
    return 0;
}

void CheckboxRadioSetManager::userFunction(Checkbox* clicked, void* manager) {
    static_cast<CheckboxRadioSetManager*>(manager)->callback(clicked);
}

void CheckboxRadioSetManager::callback(Checkbox* clicked) {
    {
        Glib::UpdateDeferrer deferred(nullptr);
        clicked->setState(true, true);
        for (Entry const& e : boxes_)
            if (e.box != clicked && isLive(e))
                e.box->setState(false, true);
    }
    informParent(clicked, false);
}
