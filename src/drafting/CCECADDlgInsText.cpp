#include "CCECADDlgInsText.h"

#include <cmath>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include "app/VELD.h"
#include "factory/RunDialog.h"
#include "res/StringIds.h"
#include "res/templates/ControlIds.h"
#include "shell/ResString.h"
#include "ulo/NumberText.h"
#include "ulo/PalmDevice.h"
#include "ulo/Xlate.h"
#include "ulo/ctrl/FieldInput.h"
#include "veld/Data.h"
#include "veld/EntCollection.h"
#include "veld/StoredRange.h"
#include "veld/Text.h"

namespace veld5 {

namespace {

constexpr unsigned kAlignments = 12;
constexpr std::size_t kMaxNumberText = 511;
/// Typed numbers must lie strictly inside (-kNumberLimit, kNumberLimit).
constexpr double kNumberLimit = 1e100;
constexpr double kMinWidthFactor = 0.01;
constexpr double kMaxWidthFactor = 100.0;
/// A hair below 85 degrees (1.4835298641951802): 85 itself is refused.
constexpr double kMaxSlant = 1.4835298641949;
constexpr double kPi = std::numbers::pi;

}  // namespace

CCECADDlgInsText::CCECADDlgInsText(const ulo::geom::PNT_3D& point, CVELD* cad, CWnd* parent)
    : CExDialog(CPalmDevice::SelectIdDlgStd(11024, 11025, 11026, 11027), parent),
      point_(point),
      cad_(cad) {}

CCECADDlgInsText::~CCECADDlgInsText() = default;

std::vector<veld::CEnt*> CCECADDlgInsText::GetTexts() const {
    std::vector<veld::CEnt*> texts;
    texts.reserve(texts_.size());
    for (const auto& t : texts_)
        texts.push_back(t.get());
    return texts;
}

void CCECADDlgInsText::OnInitDialog() {
    // The entry index is the alignment code.
    auto* justify = GetDlgItem<CCEBaseKeybCombo>(ctl::InsText::kJustify);
    for (unsigned code = 0; code < kAlignments; ++code)
        justify->AddString(veld::TEXT_3D::GetAlignName(code).ToQString());
    justify->setCurrentIndex(0);

    // One pass over the styles: the current one is recognised by name on
    // the way. A current style missing from the list leaves no entry
    // selected (OK then uses the current style itself).
    const veld::CStyle* current = GetCurStyle(cad_);
    auto* styles = GetDlgItem<CCEBaseKeybCombo>(ctl::InsText::kStyle);
    int selected = -1;
    veld::CData::CStyleIterator it(cad_->GetData(), false);
    while (veld::CStyle* style = it.GetNext()) {
        const int index =
            styles->AddString(style->GetName().ToQString(), reinterpret_cast<quintptr>(style));
        if (selected < 0 && current && style->GetName() == current->GetName())
            selected = index;
    }
    styles->setCurrentIndex(selected);

    const IAngleConverter* angles = GetAngleConverter(cad_);
    SetDlgItemText(ctl::InsText::kRotation, angles->RadAngleToString(0.0).ToQString());
    if (current) {
        const double height =
            current->GetFixedHeight() != 0.0 ? current->GetFixedHeight() : current->GetLastHeight();
        SetDlgItemText(ctl::InsText::kHeight, ulo::CStringDaDouble(height, 0, 3).ToQString());
        SetDlgItemText(ctl::InsText::kWidth,
                       ulo::CStringDaDouble(current->GetWidthScale(), 0, 3).ToQString());
        SetDlgItemText(ctl::InsText::kSlant,
                       angles->RadAngleToString(current->GetOblique()).ToQString());
    }
}

bool CCECADDlgInsText::ReadNumber(unsigned id, double& value) const {
    std::wstring text = GetDlgItemText(id).toStdWString();
    if (text.size() > kMaxNumberText)
        text.resize(kMaxNumberText);
    // A text without a number reads as 0 too: only a typed 0 is one.
    const ulo::FieldNumber read = ulo::ReadNumberField(text, ulo::FieldRule::LeadingZeroAlone);
    if (!read.IsNumber() || !(read.value > -kNumberLimit && read.value < kNumberLimit))
        return false;
    value = read.value;
    return true;
}

void CCECADDlgInsText::Refuse(unsigned id, const ulo::WString& text, StringId caption) {
    ulo::RefuseField(this, GetDlgItem<QLineEdit>(id), LoadResString(caption), text);
}

void CCECADDlgInsText::OnOK() {
    double height = 0.0;
    if (!ReadNumber(ctl::InsText::kHeight, height))
        return Refuse(ctl::InsText::kHeight, LoadResString(ids::kInvalidValue), ids::kWarning);
    if (!(height > 0.0))
        return Refuse(ctl::InsText::kHeight, LoadResString(ids::kValueMustBePositive),
                      ids::kWarning);

    double widthFactor = 0.0;
    if (!ReadNumber(ctl::InsText::kWidth, widthFactor))
        return Refuse(ctl::InsText::kWidth, LoadResString(ids::kInvalidValue), ids::kWarning);
    if (widthFactor < kMinWidthFactor || widthFactor > kMaxWidthFactor) {
        wchar_t low[64];
        wchar_t high[64];
        ArCharDaDouble(low, std::size(low), kMinWidthFactor, 0, 6);
        ArCharDaDouble(high, std::size(high), kMaxWidthFactor, 0, 6);
        return Refuse(ctl::InsText::kWidth,
                      ulo::FormatMessage(ulo::WString(L"The value is not between {1} and {2}"),
                                         ulo::WString(low), ulo::WString(high)),
                      ids::kWarning);
    }

    const IAngleConverter* angles = GetAngleConverter(cad_);
    double slant = 0.0;
    if (!ReadNumber(ctl::InsText::kSlant, slant))
        return Refuse(ctl::InsText::kSlant, LoadResString(ids::kInvalidValue), ids::kWarning);
    slant = angles->UnitsToRadians(slant);
    if (slant > kPi)
        slant -= 2 * kPi;
    if (slant < -kMaxSlant || slant > kMaxSlant)
        return Refuse(ctl::InsText::kSlant, LoadResString(ids::kSlantWithin85Degrees), ids::kError);

    double rotation = 0.0;
    if (!ReadNumber(ctl::InsText::kRotation, rotation))
        return Refuse(ctl::InsText::kRotation, LoadResString(ids::kInvalidValue), ids::kWarning);
    rotation = angles->UnitsToRadians(rotation);

    // Lines stacked from a point far out may leave the coordinates a drawing
    // keeps: the height that spaces them is what to change.
    if (!MakeTexts(ChosenStyle(), height, widthFactor, slant, rotation))
        return Refuse(ctl::InsText::kHeight, LoadResString(ids::kValueOutOfRange), ids::kWarning);
    CExDialog::OnOK();
}

veld::CStyle* CCECADDlgInsText::ChosenStyle() const {
    const auto* styles = GetDlgItem<CCEBaseKeybCombo>(ctl::InsText::kStyle);
    const int index = styles->currentIndex();
    if (index >= 0)
        return styles->GetItemPtr<veld::CStyle>(index);
    return GetCurStyle(cad_);
}

bool CCECADDlgInsText::MakeTexts(veld::CStyle* style, double height, double widthFactor,
                                 double slant, double rotation) {
    // Line pitch: ascent, descent and line gap of the font for a text whose
    // ascent is the height. A font without an ascent spaces lines by the
    // height alone.
    double pitch = height;
    const veld::ICADFont* font = style ? style->GetFont() : nullptr;
    if (font && font->GetAscent() > 0) {
        const int sum = font->GetAscent() + font->GetDescent() + font->GetLineGap();
        pitch = sum * height / font->GetAscent();
    }
    const double d1 = pitch * std::sin(rotation);
    const double d2 = -pitch * std::cos(rotation);
    const bool horizontal = !style || style->IsHoriz();
    const unsigned short alignment = static_cast<unsigned short>(
        GetDlgItem<CCEBaseKeybCombo>(ctl::InsText::kJustify)->currentIndex());

    texts_.clear();
    std::vector<std::pair<ulo::WString, ulo::geom::PNT_3D>> lines;
    ulo::geom::PNT_3D at = point_;
    for (const unsigned id : {ctl::InsText::kLine1, ctl::InsText::kLine2, ctl::InsText::kLine3}) {
        const ulo::WString line = ulo::WString::FromQString(GetDlgItemText(id));
        if (line.Length() == 0)
            continue;  // an empty line leaves no gap
        constexpr veld::StoredRange kept = veld::stored::kCoordinate;
        if (!kept.Holds(at.x) || !kept.Holds(at.y) || !kept.Holds(at.z))
            return false;
        lines.emplace_back(line, at);
        if (horizontal) {
            // The next line below, across the text direction.
            at.x += d1;
            at.y += d2;
        } else {
            // The next column, along the text direction.
            at.x -= d2;
            at.y += d1;
        }
    }
    for (const auto& [line, point] : lines) {
        veld::CTextContext context(line, height, slant, widthFactor, rotation);
        const veld::TEXT_3D text(context, style, point, alignment, 0);
        texts_.push_back(ulo::RefPtr<veld::CEnt>::Adopt(CreateEntText(cad_, text)));
    }
    return true;
}

void RunDlgInsText(CWnd* parent, CVELD& cad, const ulo::geom::PNT_3D& point,
                   veld::CEntCollection& ents) {
    // The caller gets only the texts of this call, whatever the outcome.
    ents.RemoveAllEnts();
    RunDialog([&] { return std::make_unique<CCECADDlgInsText>(point, &cad, parent); },
              [&](const CCECADDlgInsText& dialog) {
                  const std::vector<veld::CEnt*> texts = dialog.GetTexts();
                  ents.Reserve(static_cast<unsigned>(texts.size()));
                  for (veld::CEnt* text : texts)
                      ents.AddEnt(text);
              });
}

}  // namespace veld5
