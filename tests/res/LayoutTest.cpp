// Every template in every layout: controls inside the dialog, no unintended
// overlap, every label fits its control, the contents of a group box inside its
// frame, and the same controls everywhere; the screen shapes behind the layouts.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QFontMetrics>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

#include "factory/Scopes.h"
#include "res/Resources.h"
#include "ulo/PalmDevice.h"
#include "ulo/ctrl/Dialog.h"

namespace {

struct Case {
    unsigned base;
    int layout;
};

/// Every layout of every template, or of those that frame some of their controls.
std::vector<Case> layouts(bool groupedOnly) {
    std::vector<Case> cases;
    for (const auto& t : veld5::DialogTemplates()) {
        const bool grouped = std::any_of(t.controls.begin(), t.controls.end(), [](const auto& c) {
            return c.kind == ulo::CtrlKind::GroupBox;
        });
        for (int v = 0; v < 4 && (grouped || !groupedOnly); ++v)
            cases.push_back({t.baseId, v});
    }
    return cases;
}

/// Builds a template's widgets without running it.
class Built : public CExDialog {
public:
    explicit Built(unsigned id) : CExDialog(id, nullptr) { ok = Create(id, nullptr); }
    bool ok = false;
};

int textWidth(const QFontMetrics& fm, const QString& text) {
    int w = 0;
    for (const QString& line : text.split(QLatin1Char('\n')))
        w = std::max(w, fm.horizontalAdvance(line));
    return w;
}

/// Width a label needs, or -1 when the control has no label to fit.
int neededWidth(QWidget* w) {
    const QFontMetrics fm(w->font());
    if (auto* l = qobject_cast<QLabel*>(w)) {
        if (l->text().isEmpty())
            return -1;
        // A word-wrapped label fits when its wrapped lines fit its height.
        if (l->wordWrap())
            return l->heightForWidth(l->width()) <= l->height() ? 0 : l->width() + 1;
        return textWidth(fm, l->text());
    }
    if (auto* b = qobject_cast<QPushButton*>(w))
        return b->text().isEmpty() ? -1 : textWidth(fm, b->text()) + 6;
    if (qobject_cast<QCheckBox*>(w) || qobject_cast<QRadioButton*>(w))
        return w->sizeHint().width();
    if (auto* g = qobject_cast<QGroupBox*>(w))
        return g->title().isEmpty() ? -1 : textWidth(fm, g->title()) + 8;
    return -1;
}

QString describe(const ulo::CtrlTemplate& ctrl) {
    return QStringLiteral("%1 \"%2\"").arg(ctrl.id).arg(QString::fromWCharArray(ctrl.label));
}

QString describe(const QRect& r) {
    return QStringLiteral("(%1,%2 %3x%4)").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
}

struct Placed {
    QWidget* w;
    const ulo::CtrlTemplate* ctrl;
    QRect r;
};

class TemplateLayout : public ::testing::TestWithParam<Case> {
protected:
    void SetUp() override {
        CPalmDevice::SetLayoutOverride(GetParam().layout);
        const Case c = GetParam();
        const unsigned id = CPalmDevice::SelectIdDlgStd(c.base, c.base + 1, c.base + 2, c.base + 3);
        ASSERT_EQ(id, c.base + static_cast<unsigned>(c.layout));
        dialog = std::make_unique<Built>(id);
        ASSERT_TRUE(dialog->ok);
        t = dialog->GetTemplate();
        ASSERT_NE(t, nullptr);
        const auto children = dialog->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget* w : children) {
            if (!w->property(ulo::prop::kCtrlId).isValid())
                continue;
            const auto index = w->property(ulo::prop::kCtrlIndex).toUInt();
            ASSERT_LT(index, t->controls.size());
            built.push_back({w, &t->controls[index], w->geometry()});
            if (!w->isHidden())
                placed.push_back(built.back());
        }
    }
    void TearDown() override { CPalmDevice::SetLayoutOverride(-1); }

    std::string where(const ulo::CtrlTemplate& ctrl) const {
        return std::to_string(GetParam().base) + "/" + std::to_string(GetParam().layout) +
               " control " + describe(ctrl).toStdString();
    }

    veld5::CModuleResourceScope scope;
    std::unique_ptr<Built> dialog;
    const ulo::DialogTemplate* t = nullptr;
    std::vector<Placed> built;   ///< every control, in template order
    std::vector<Placed> placed;  ///< the visible ones
};

class GroupLayout : public TemplateLayout {};

std::string caseName(const ::testing::TestParamInfo<Case>& info) {
    return std::to_string(info.param.base) + "_" + std::to_string(info.param.layout);
}

}  // namespace

TEST_P(TemplateLayout, ControlsFitAndDoNotOverlap) {
    const int layout = GetParam().layout;
    const QRect area(QPoint(0, 0), QSize(dialog->Units().X(t->size[layout].w),
                                         dialog->Units().Y(t->size[layout].h)));
    EXPECT_EQ(built.size(), t->controls.size());
    for (const Placed& p : built)
        EXPECT_TRUE(area.contains(p.r)) << where(*p.ctrl) << " at " << describe(p.r).toStdString();
    // A label must fit whole: a group title too, since the style draws it on one
    // line and cuts it at the frame's end.
    for (const Placed& p : placed) {
        const int need = neededWidth(p.w);
        EXPECT_LE(need, p.w->width()) << where(*p.ctrl) << " needs " << need;
    }

    for (std::size_t i = 0; i < placed.size(); ++i)
        for (std::size_t j = i + 1; j < placed.size(); ++j) {
            const Placed& a = placed[i];
            const Placed& b = placed[j];
            if (!a.r.intersects(b.r))
                continue;
            const bool nested = (a.ctrl->kind == ulo::CtrlKind::GroupBox && a.r.contains(b.r)) ||
                                (b.ctrl->kind == ulo::CtrlKind::GroupBox && b.r.contains(a.r));
            EXPECT_TRUE(nested) << where(*a.ctrl) << " overlaps "
                                << describe(*b.ctrl).toStdString();
        }
}

INSTANTIATE_TEST_SUITE_P(AllTemplates, TemplateLayout, ::testing::ValuesIn(layouts(false)),
                         caseName);

// What lies in a group box's rectangle must lie in the area the style leaves for
// its contents: under the title's line and some pixels clear of the frame lines.
// Rounding dialog units to pixels must not push a control onto the frame either,
// so the check is made on the widgets as built.
TEST_P(GroupLayout, ContentsSitInsideTheFrame) {
    int groups = 0;
    for (const Placed& g : placed) {
        auto* box = qobject_cast<QGroupBox*>(g.w);
        if (!box)
            continue;
        ++groups;
        const QRect inner = box->contentsRect().translated(g.r.topLeft());
        ASSERT_TRUE(inner.isValid()) << where(*g.ctrl) << " has no room inside";
        for (const Placed& p : placed) {
            if (p.w == g.w || !p.r.intersects(g.r))
                continue;
            // A group around this one is not its content.
            if (p.ctrl->kind == ulo::CtrlKind::GroupBox && p.r.contains(g.r))
                continue;
            EXPECT_TRUE(inner.contains(p.r))
                << where(*p.ctrl) << " at " << describe(p.r).toStdString() << " is not inside "
                << describe(*g.ctrl).toStdString() << ", whose contents go in "
                << describe(inner).toStdString();
        }
    }
    EXPECT_GT(groups, 0) << "no visible group box";
}

INSTANTIATE_TEST_SUITE_P(TemplatesWithGroups, GroupLayout, ::testing::ValuesIn(layouts(true)),
                         caseName);

TEST(TemplateCatalogue, TwentyFourTemplatesWithTheirSizes) {
    const auto templates = veld5::DialogTemplates();
    ASSERT_EQ(templates.size(), 24u);
    for (std::size_t i = 0; i < templates.size(); ++i) {
        const auto& t = templates[i];
        EXPECT_EQ(t.baseId, 11000u + 4 * i);
        const bool wide = t.baseId == 11000 || t.baseId == 11060 || t.baseId == 11076;
        const ulo::DlgSize sizes[] = {
            {short(wide ? 139 : 138), 167}, {138, 217}, {179, 120}, {229, 120}};
        for (int v = 0; v < 4 && !t.childPage; ++v)
            EXPECT_TRUE(t.size[v].w == sizes[v].w && t.size[v].h == sizes[v].h) << t.baseId;
        if (t.helpTopic) {
            EXPECT_EQ(std::wstring(t.helpTopic).rfind(L"QuadraCE.htm#Dlg ", 0), 0u);
        }
    }
}

TEST(LayoutRule, ScreenShapesMapToTheirLayouts) {
    struct {
        int w, h, layout;
    } const rows[] = {{240, 320, 0}, {320, 320, 0}, {480, 800, 1}, {240, 400, 1},  {320, 240, 2},
                      {800, 600, 2}, {800, 480, 2}, {854, 480, 3}, {1920, 1080, 3}};
    for (const auto& r : rows)
        EXPECT_EQ(CPalmDevice::LayoutForScreen(r.w, r.h), r.layout) << r.w << "x" << r.h;
}
