#include "buttons/CheckboxRadioSetBase.h"

CheckboxRadioSetBase::~CheckboxRadioSetBase() {
    clear();
}

void CheckboxRadioSetBase::clear() {
    for (Checkbox* box : getCheckboxes())
        box->setUserFunction(nullptr, nullptr);
    boxes_.clear();
    stamps_.clear();
}

void CheckboxRadioSetBase::addCheckbox(Checkbox* box) {
    boxes_.push_back(box);
    stamps_.push_back(box->getIdStamp());
    box->setUserFunction(&CheckboxRadioSetBase::checkboxClickCallback, this);
}

std::vector<Checkbox*> const& CheckboxRadioSetBase::getCheckboxes() {
    dropDeadBoxes();
    return boxes_;
}

void CheckboxRadioSetBase::dropDeadBoxes() {
    for (std::size_t i = boxes_.size(); i-- > 0;)
        if (!EventHandler::valid(boxes_[i], stamps_[i])) {
            boxes_.erase(boxes_.begin() + long(i));
            stamps_.erase(stamps_.begin() + long(i));
        }
}

void CheckboxRadioSetBase::checkboxClickCallback(Checkbox* clicked, void* set) {
    static_cast<CheckboxRadioSetBase*>(set)->handleCheckboxClickInternal(clicked);
}

void CheckboxRadioSetBase::setSelectedItem(unsigned short index) {
    std::vector<Checkbox*> const& boxes = getCheckboxes();
    if (index < boxes.size())
        handleCheckboxClickInternal(boxes[index]);
}

void CheckboxRadioSetBase::handleCheckboxClickInternal(Checkbox* clicked) {
    if (clicked->getState())
        return;
    std::vector<Checkbox*> const boxes = getCheckboxes();
    for (Checkbox* box : boxes) {
        box->setState(box == clicked);
        box->setClicksEnabled(box != clicked);
    }
    handleCheckboxClick(clicked);
}
