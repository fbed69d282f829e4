#pragma once

// The value side of a button: a widget that shows one value, its label.

#include "foundation/ValWidget.h"

template <class T>
class ButtonWidget : public ValWidget<T> {};
