#pragma once

namespace velmo
{

enum class PointerShape
{
    Normal,
    Hourglass,
    ArrowAndHourglass,
};

/// The mouse pointer over the program's windows. The window program shows it; without windows it is
/// only remembered. User-interface thread.
class MousePointer
{
  public:
    virtual ~MousePointer() = default;

    [[nodiscard]] PointerShape Shape() const { return m_shape; }

    void SetShape(PointerShape shape)
    {
        m_shape = shape;
        Show(shape);
    }

  private:
    virtual void Show(PointerShape /*shape*/) {}

    PointerShape m_shape = PointerShape::Normal;
};

/// Shows one shape while it lives, then the shape that was there before.
class PointerScope
{
  public:
    PointerScope(MousePointer& pointer, PointerShape shape)
        : m_pointer(pointer), m_before(pointer.Shape())
    {
        pointer.SetShape(shape);
    }
    ~PointerScope() { m_pointer.SetShape(m_before); }
    PointerScope(const PointerScope&) = delete;
    PointerScope& operator=(const PointerScope&) = delete;

  private:
    MousePointer& m_pointer;
    PointerShape m_before;
};

/// The hourglass while it lives.
struct CHourGlass : PointerScope
{
    explicit CHourGlass(MousePointer& pointer) : PointerScope(pointer, PointerShape::Hourglass) {}
};

/// The arrow with the hourglass while it lives.
struct CHourGlassAndArrow : PointerScope
{
    explicit CHourGlassAndArrow(MousePointer& pointer)
        : PointerScope(pointer, PointerShape::ArrowAndHourglass)
    {}
};

} // namespace velmo
