#pragma once
// Entities: lines, polylines, circles, points and texts. Each has a colour
// index (0 ByBlock, 1..255, 256 ByLayer), a layer, a line type, an entity set
// and a user type that says which changes it allows. An entity holds a
// reference on its layer, line type, set and text style.
#include <array>
#include <vector>

#include "Drawing.h"
#include "Layer.h"
#include "Style.h"
#include "Text.h"
#include "ulo/Geom.h"

namespace veld {

/// What an entity lets the user do with it (bits of CanPerform).
class CVeldUserType {
public:
    static constexpr unsigned kChangeLayer = 0x10;
    static constexpr unsigned kChangeLtype = 0x20;
    static constexpr unsigned kChangeDrawing = 0x40000;
    static constexpr unsigned kAll = 0xFFFFFFFFu;

    constexpr CVeldUserType(unsigned id, unsigned allowed) : id_(id), allowed_(allowed) {}
    unsigned GetID() const { return id_; }
    unsigned GetAllowed() const { return allowed_; }
    bool CanPerform(unsigned operation) const { return (allowed_ & operation) == operation; }

    /// Ordinary entities allow everything.
    static const CVeldUserType* Standard();
    /// Entities made by a survey command keep their set and layer.
    static const CVeldUserType* Survey();
    /// The user type of id @p id (Standard for an unknown one).
    static const CVeldUserType* FromID(unsigned id);
    /// The user type of id @p id, or null when no user type has it; for
    /// readers that must refuse an id rather than take it for Standard.
    static const CVeldUserType* Find(unsigned id);

private:
    unsigned id_;
    unsigned allowed_;
};

class IHandleObject : public ulo::IHandledRefCounter {
public:
    virtual CDrawing* GetDrawing() const = 0;
    virtual const CVeldUserType* GetUserType() const = 0;
};

enum class EntKind { Line, Polyline, Circle, Point, Text };

class CEnt : public IHandleObject, public ulo::IMementable {
public:
    EntKind GetKind() const { return kind_; }
    /// "LINE", "POLYLINE", "CIRCLE", "POINT", "TEXT".
    const wchar_t* GetKindName() const;
    static bool KindFromName(const ulo::WString& name, EntKind& kind);

    short GetColor() const { return s_.colour; }
    void SetColor(short colour) { s_.colour = colour; }
    CLayer* GetLayer() const { return s_.layer.get(); }
    void SetLayer(CLayer* layer) { s_.layer = ulo::RefPtr<CLayer>::Share(layer); }
    CLtype* GetLtype() const { return s_.ltype.get(); }
    void SetLtype(CLtype* ltype) { s_.ltype = ulo::RefPtr<CLtype>::Share(ltype); }
    CDrawing* GetDrawing() const override { return s_.drawing.get(); }
    /// Moves the entity to another entity set.
    void ChangeDrawing(CDrawing* drawing) { s_.drawing = ulo::RefPtr<CDrawing>::Share(drawing); }
    const CVeldUserType* GetUserType() const override { return s_.userType; }
    void SetUserType(const CVeldUserType* type) {
        s_.userType = type ? type : CVeldUserType::Standard();
    }

    // Geometry. Lines have two points, polylines two or more (closed or
    // not), circles and points and texts one.
    const std::vector<ulo::geom::PNT_3D>& GetPoints() const { return s_.points; }
    void SetPoints(std::vector<ulo::geom::PNT_3D> points) {
        for (ulo::geom::PNT_3D& p : points)
            p = {Kept(p.x), Kept(p.y), Kept(p.z)};
        s_.points = std::move(points);
    }
    double GetRadius() const { return s_.radius; }
    void SetRadius(double r) { s_.radius = Kept(r); }
    bool IsClosed() const { return s_.closed; }
    void SetClosed(bool closed) { s_.closed = closed; }
    /// Moves every point by (dx, dy, dz).
    void Move(double dx, double dy, double dz);

    /// True when @p item (layer, line type or text style) is used by the entity.
    virtual bool RefersTo(const ITableItem* item) const;
    /// The items RefersTo is true for: the layer, the line type and the text
    /// style (null where the entity has none).
    std::array<const ITableItem*, 3> GetReferredItems() const {
        return {s_.layer.get(), s_.ltype.get(), s_.text.style.get()};
    }

    ulo::IMemento* CreateMemento() const override;
    bool HasChanged(const ulo::IMemento* memento) const override;

protected:
    CEnt(EntKind kind, CLayer* layer, CLtype* ltype, short colour, CDrawing* drawing);
    void OnSetMemento(ulo::IMemento* memento) override;

    struct TextState {
        ulo::WString text;
        double height = 0, slant = 0, width = 1, rotation = 0;
        unsigned short alignment = 0;
        ulo::RefPtr<CStyle> style;
        bool operator==(const TextState& o) const {
            return text == o.text && height == o.height && slant == o.slant && width == o.width &&
                   rotation == o.rotation && alignment == o.alignment &&
                   style.get() == o.style.get();
        }
    };
    TextState& Text() { return s_.text; }
    const TextState& Text() const { return s_.text; }

private:
    struct State {
        short colour;
        ulo::RefPtr<CLayer> layer;
        ulo::RefPtr<CLtype> ltype;
        ulo::RefPtr<CDrawing> drawing;
        const CVeldUserType* userType;
        std::vector<ulo::geom::PNT_3D> points;
        double radius = 0;
        bool closed = false;
        TextState text;
        bool operator==(const State& o) const;
    } s_;
    EntKind kind_;
};

class CEntLine : public CEnt {
public:
    CEntLine(const ulo::geom::PNT_3D& from, const ulo::geom::PNT_3D& to, CLayer* layer,
             CLtype* ltype, short colour, CDrawing* drawing);
};

class CEntPolyline : public CEnt {
public:
    CEntPolyline(std::vector<ulo::geom::PNT_3D> points, bool closed, CLayer* layer, CLtype* ltype,
                 short colour, CDrawing* drawing);
};

class CEntCircle : public CEnt {
public:
    CEntCircle(const ulo::geom::PNT_3D& centre, double radius, CLayer* layer, CLtype* ltype,
               short colour, CDrawing* drawing);
};

class CEntPoint : public CEnt {
public:
    CEntPoint(const ulo::geom::PNT_3D& point, CLayer* layer, CLtype* ltype, short colour,
              CDrawing* drawing);
};

class CEntText : public CEnt {
public:
    CEntText(const TEXT_3D& text, CLayer* layer, CLtype* ltype, short colour, CDrawing* drawing);

    /// The text as a TEXT_3D (its style pointer stays valid while the entity
    /// lives).
    TEXT_3D GetText() const;
    void SetText(const TEXT_3D& text);
    const ulo::WString& GetString() const { return Text().text; }
    CStyle* GetStyle() const { return Text().style.get(); }
    unsigned short GetAlignment() const { return Text().alignment; }
};

/// A new entity of @p kind with empty geometry (the file reader fills it in).
CEnt* CreateEnt(EntKind kind, CLayer* layer, CLtype* ltype, short colour, CDrawing* drawing);

}  // namespace veld
