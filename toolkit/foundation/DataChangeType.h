#pragma once

// Why a widget asks for its value to change; the adaptor gets it with the request and may treat a
// drag's intermediate steps differently from a final setting.

enum DataChangeType : int {
    DragStart = 0,
    DragStep = 1,
    DragEnd = 2,
    // Set by the program, or committed because the widget lost the keyboard focus.
    SetByProgram = 3,
    NewText = 4,
};
