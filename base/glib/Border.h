#pragma once

// The description of a panel's border: how wide it is, how it is drawn and on which edges. Sizes
// that are not given follow the interface measures (widget gap and indent width) of the type.

class Border {
public:
    enum eType : int {
        None = 0,
        // A thin flat edge.
        Line = 1,
        // A thin edge for a panel attached below another (its surround leaves out the top).
        Attached = 2,
        Curved = 3,
        // A thin edge with no surround.
        Inset = 4,
        // A double-width edge with a surround.
        Bevelled = 5,
        // The standard panel border.
        Panel = 6,
        RoundedIndented = 7,
        // A narrow border for small panels such as prompts.
        Narrow = 8,
    };
    enum Edge : unsigned { Top = 1, Bottom = 2, Left = 4, Right = 8, AllEdges = 15 };
    enum Style : unsigned { DarkEdge = 1, LightEdge = 2, TitleArea = 4, StatusArea = 8 };

    Border() = default;
    Border(eType type_, unsigned short size_, unsigned int edges_);
    // A border of a fixed size on all edges, with nothing drawn.
    explicit Border(unsigned short size_);

    // The size field when it is set, otherwise the type's own size.
    unsigned short getSize() const;
    // The width of the drawn edge: the type's, and never more than the whole border.
    unsigned short getVisibleSize() const;
    void setType(eType type_) { type = type_; }

    static unsigned short calcSize(eType type);
    // At most twice the indent width.
    static unsigned short calcVisibleSize(eType type);

    // Pixels; 0 means the type's size.
    unsigned short size = 0;
    eType type = None;
    // Mask of Edge.
    unsigned int edges = AllEdges;
    // Mask of Style.
    unsigned int style = 0;
    // How far the light and dark edge lines move from the window colour.
    float scale = 0.5f;
};
