// Every template in every layout: controls inside the dialog, no unintended
// overlap, every label fits its control, and the same controls everywhere.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QFontMetrics>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "factory/Scopes.h"
#include "res/Resources.h"
#include "ulo/PalmDevice.h"
#include "ulo/ctrl/Dialog.h"

namespace {

struct Case {
    unsigned base;
    int layout;
};

std::vector<Case> allCases() {
    std::vector<Case> cases;
    for (const auto& t : veld5::DialogTemplates())
        for (int v = 0; v < 4; ++v)
            cases.push_back({t.baseId, v});
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

const ulo::CtrlTemplate* controlOf(const ulo::DialogTemplate& t, QWidget* w) {
    const int index = w->property("veldCtrlIndex").toInt();
    return index < static_cast<int>(t.controls.size()) ? &t.controls[index] : nullptr;
}

class TemplateLayout : public ::testing::TestWithParam<Case> {
protected:
    void SetUp() override { CPalmDevice::SetLayoutOverride(GetParam().layout); }
    void TearDown() override { CPalmDevice::SetLayoutOverride(-1); }
    veld5::CModuleResourceScope scope;
};

}  // namespace

TEST_P(TemplateLayout, ControlsFitAndDoNotOverlap) {
    const Case c = GetParam();
    const unsigned id = CPalmDevice::SelectIdDlgStd(c.base, c.base + 1, c.base + 2, c.base + 3);
    ASSERT_EQ(id, c.base + static_cast<unsigned>(c.layout));
    Built dialog(id);
    ASSERT_TRUE(dialog.ok);
    const ulo::DialogTemplate& t = *dialog.GetTemplate();
    const QRect area(QPoint(0, 0), QSize(dialog.Units().X(t.size[c.layout].w),
                                         dialog.Units().Y(t.size[c.layout].h)));

    struct Placed {
        QWidget* w;
        const ulo::CtrlTemplate* ctrl;
        QRect r;
    };
    std::vector<Placed> placed;
    const auto children = dialog.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    int index = 0;
    for (QWidget* w : children) {
        if (!w->property(ulo::kCtrlIdProperty).isValid())
            continue;
        const ulo::CtrlTemplate* ctrl = controlOf(t, w);
        ++index;
        ASSERT_NE(ctrl, nullptr);
        const QString where = QStringLiteral("%1/%2 control %3 \"%4\"")
                                  .arg(c.base)
                                  .arg(c.layout)
                                  .arg(ctrl->id)
                                  .arg(QString::fromWCharArray(ctrl->label));
        EXPECT_TRUE(area.contains(w->geometry())) << where.toStdString();
        if (w->isHidden())
            continue;
        int need = neededWidth(w);
        // A group title longer than the whole dialog is clipped, as on the device,
        // provided the group spans the dialog.
        if (ctrl->kind == ulo::CtrlKind::GroupBox && need > area.width() &&
            w->width() >= area.width() - dialog.Units().X(8))
            need = w->width();
        EXPECT_LE(need, w->width()) << where.toStdString() << " needs " << need;
        placed.push_back({w, ctrl, w->geometry()});
    }
    EXPECT_EQ(index, static_cast<int>(t.controls.size()));

    for (std::size_t i = 0; i < placed.size(); ++i)
        for (std::size_t j = i + 1; j < placed.size(); ++j) {
            const Placed& a = placed[i];
            const Placed& b = placed[j];
            if (!a.r.intersects(b.r))
                continue;
            const bool nested = (a.ctrl->kind == ulo::CtrlKind::GroupBox && a.r.contains(b.r)) ||
                                (b.ctrl->kind == ulo::CtrlKind::GroupBox && b.r.contains(a.r));
            EXPECT_TRUE(nested) << c.base << "/" << c.layout << ": " << a.ctrl->id << " \""
                                << QString::fromWCharArray(a.ctrl->label).toStdString()
                                << "\" overlaps " << b.ctrl->id << " \""
                                << QString::fromWCharArray(b.ctrl->label).toStdString() << "\"";
        }
}

INSTANTIATE_TEST_SUITE_P(AllTemplates, TemplateLayout, ::testing::ValuesIn(allCases()),
                         [](const auto& info) {
                             return std::to_string(info.param.base) + "_" +
                                    std::to_string(info.param.layout);
                         });

TEST(TemplateCatalogue, TwentyFourTemplatesWithTheirSizes) {
    const auto templates = veld5::DialogTemplates();
    ASSERT_EQ(templates.size(), 24u);
    for (std::size_t i = 0; i < templates.size(); ++i) {
        const auto& t = templates[i];
        EXPECT_EQ(t.baseId, 11000u + 4 * i);
        const bool wide = t.baseId == 11000 || t.baseId == 11060 || t.baseId == 11076;
        if (!t.childPage) {
            EXPECT_EQ(t.size[0].w, wide ? 139 : 138) << t.baseId;
            EXPECT_EQ(t.size[0].h, 167);
            EXPECT_EQ(t.size[1].w, 138);
            EXPECT_EQ(t.size[1].h, 217);
            EXPECT_EQ(t.size[2].w, 179);
            EXPECT_EQ(t.size[3].w, 229);
            EXPECT_EQ(t.size[3].h, 120);
        }
        if (t.helpTopic) {
            EXPECT_EQ(std::wstring(t.helpTopic).rfind(L"QuadraCE.htm#Dlg ", 0), 0u);
        }
    }
}
