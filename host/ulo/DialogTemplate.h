#pragma once
// Dialog templates as data. One template holds the controls of a dialog with
// four rectangles each, one per layout variant (portrait, tall portrait,
// landscape, wide landscape), in dialog units. The toolkit builds the widgets
// of the variant the device picked.
#include <cstdint>
#include <span>

namespace ulo {

enum class CtrlKind : std::uint8_t {
    Static,    ///< text label (or an empty placeholder rectangle)
    GroupBox,  ///< frame with a caption
    PushButton,
    CheckBox,
    RadioButton,
    Edit,      ///< text edit; style Numeric makes it a number edit
    ComboBox,  ///< drop-down list
    ListView,  ///< report or icon list
    TabControl,
    ScrollBarH,  ///< horizontal scroll bar
    Custom,      ///< built by the dialog itself (colour strips, swatches, grids)
};

/// Style bits of a control (a subset of the Win32 styles the dialogs name).
enum CtrlStyle : std::uint32_t {
    kHidden = 1u << 0,
    kDisabled = 1u << 1,
    kReadOnly = 1u << 2,
    kPassword = 1u << 3,
    kUppercase = 1u << 4,
    kAutoHScroll = 1u << 5,
    kGroupStart = 1u << 6,  ///< first radio button of a group
    kBorder = 1u << 7,
    kMultiline = 1u << 8,
    kSorted = 1u << 9,
    kOwnerDraw = 1u << 10,
    kSingleSel = 1u << 11,
    kShowSelAlways = 1u << 12,
    kReportView = 1u << 13,
    kIconView = 1u << 14,
    kNumeric = 1u << 15,  ///< number edit (CCEEditKeybNum)
    kCenter = 1u << 16,   ///< centred text
    kRight = 1u << 17,    ///< right-aligned text
    kDefault = 1u << 18,  ///< default push button
    kNoHideSel = 1u << 19,
    kIconOnly = 1u << 20,  ///< small button showing only an image
};

struct DlgRect {
    short x, y, w, h;
};

struct DlgSize {
    short w, h;
};

constexpr unsigned kStaticId = 65535;  ///< id of labels that code never addresses

struct CtrlTemplate {
    unsigned id;
    CtrlKind kind;
    const wchar_t* label;
    std::uint32_t style;
    DlgRect rect[4];
    /// Layouts (bit n = variant n) in which the control is hidden.
    std::uint8_t hiddenIn = 0;
    /// Layouts in which the control starts disabled.
    std::uint8_t disabledIn = 0;
    /// Label used instead of @c label in the layouts of @c altLabelIn.
    const wchar_t* altLabel = nullptr;
    std::uint8_t altLabelIn = 0;
};

struct DialogTemplate {
    unsigned baseId;       ///< N; the variants are N..N+3
    const wchar_t* title;  ///< empty for child pages
    /// The host's help page for the dialog, announced when it opens (and when
    /// a page comes to the front); null when the dialog has none.
    const wchar_t* helpTopic;
    bool childPage;  ///< a page inside a container (no caption)
    DlgSize size[4];
    std::span<const CtrlTemplate> controls;
    /// The push buttons that act as OK and Cancel, drawn in the standard
    /// colours; 0 when the template has none (the ids 1 and 2 then act).
    unsigned okId = 0;
    unsigned cancelId = 0;
    /// The help key does nothing: the dialog's help is its topic alone.
    bool helpByTopicOnly = false;
    const wchar_t* fontName = L"Tahoma";
    int fontPoints = 9;
};

}  // namespace ulo
