// The promise of the layers and line types dialogs, over random visits (fixed
// seeds): whatever the user does, Cancel leaves the drawing exactly as it was;
// OK then Undo gives the drawing back as it was, and Redo as it was after OK.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QMessageBox>
#include <algorithm>
#include <functional>
#include <random>

#include "app/DrawingFile.h"
#include "app/SampleDrawing.h"
#include "app/VELD.h"
#include "res/templates/ControlIds.h"
#include "support/FactoryFixture.h"
#include "ulo/ctrl/Win.h"

using automation::ScriptedUser;

namespace {

namespace ctl = veld5::ctl;
namespace Layers = ctl::Layers;
namespace Ltypes = ctl::Ltypes;

/// A user who acts at random on whatever window is in front, for a number of
/// acts on the dialog under test, then ends it with OK or Cancel.
class RandomUser {
public:
    RandomUser(ScriptedUser& user, unsigned seed, bool ok)
        : user_(user), rng_(seed), acts_(Below(12) + 1), ok_(ok) {}

    void Act(QWidget* window) {
        if (qobject_cast<QMessageBox*>(window)) {
            user_.Answer(ulo::IDOK);
            return;
        }
        const unsigned base = window->property("veldBaseId").toUInt();
        // The pickers the dialogs open: one act, then OK mostly.
        if (base == ctl::Color::kTemplate)
            user_.Press(ctl::Color::kPaletteEven, Fraction(), Fraction());
        else if (base == ctl::SelType::kTemplate)
            user_.Tap(ctl::SelType::kList, Below(Rows(window, ctl::SelType::kList)), 0);
        else if (base == ctl::LtypeLoad::kTemplate)
            for (int n = Below(3); n >= 0; --n)
                user_.CheckRow(ctl::LtypeLoad::kGrid, Below(Rows(window, ctl::LtypeLoad::kGrid)));
        if (base == ctl::Color::kTemplate || base == ctl::SelType::kTemplate ||
            base == ctl::LtypeLoad::kTemplate) {
            user_.Click(window->property(Below(4) ? "veldOkId" : "veldCancelId").toUInt());
            return;
        }
        if (acts_-- == 0)
            user_.Click(ok_ ? ulo::IDOK : ulo::IDCANCEL);
        else if (base == Layers::kTemplate)
            ActOnLayers(window);
        else if (base == Ltypes::kTemplate)
            ActOnLtypes(window);
        else
            user_.Close();
    }

private:
    int Below(int n) { return n <= 0 ? 0 : std::uniform_int_distribution<int>(0, n - 1)(rng_); }
    double Fraction() { return std::uniform_real_distribution<double>(0.05, 0.95)(rng_); }
    static int Rows(QWidget* window, unsigned id) {
        auto* view = qobject_cast<QAbstractItemView*>(ulo::FindControl(window, id));
        return view && view->model() ? view->model()->rowCount() : 0;
    }

    void ActOnLayers(QWidget* w) {
        const int row = Below(Rows(w, Layers::kList));
        static const char* const names[] = {"ROADS", "roads", "NEW_1", "A B", "", "Layer1", "0"};
        const std::function<void()> acts[] = {
            [&] {
                user_.Tap(Layers::kList, row, 1 + Below(5));
            },  // on, freeze, lock, colour, line type
            // Selected by a double toggle of Lock, then Delete, or Current.
            [&] {
                user_.Tap(Layers::kList, row, 3).Tap(Layers::kList, row, 3).Click(Layers::kDelete);
            },
            [&] { user_.Click(Layers::kNew); },
            [&] {
                user_.Tap(Layers::kList, row, 3).Tap(Layers::kList, row, 3).Click(Layers::kCurrent);
            },
            [&] { user_.Header(Layers::kList, Below(6)); },
            [&] { user_.Pick(Layers::kFilter, Below(3)); },
            [&] {
                auto* view = qobject_cast<QAbstractItemView*>(ulo::FindControl(w, Layers::kList));
                const QString name = view->model()->index(row, 0).data().toString();
                user_.Tap(Layers::kList, row, 0);
                // No editor for these; otherwise typed only when the editor
                // came: a tap on the cell a moment after the last one on it
                // is a double tap.
                if (name != QStringLiteral("0") && !name.contains(u'|'))
                    user_.Inspect([this, name = names[Below(7)]](QWidget* w) {
                        if (ulo::FindControl(w, Ltypes::kNameEdit)->isVisible())
                            user_.SetText(Ltypes::kNameEdit, QString::fromLatin1(name))
                                .Key(Ltypes::kNameEdit, Qt::Key_Return);
                    });
            },
        };
        acts[Rows(w, Layers::kList) ? std::min(Below(9), 6) : 2]();
    }

    void ActOnLtypes(QWidget* w) {
        const int row = Below(Rows(w, Ltypes::kList));
        static const char* const scales[] = {"2", "0", "-1", "abc", "0.5", "1,25", "1e309"};
        const std::function<void()> acts[] = {
            [&] { user_.Tap(Ltypes::kList, row, 0).Click(Ltypes::kCurrent); },
            [&] { user_.Tap(Ltypes::kList, row, 0).Click(Ltypes::kDelete); },
            [&] { user_.Click(Ltypes::kLoad); },
            [&] {
                user_.Clear(Ltypes::kScale)
                    .Type(Ltypes::kScale, QString::fromLatin1(scales[Below(7)]));
            },
            [&] { user_.Pick(Ltypes::kFilter, Below(3)); },
            [&] { user_.Click(Ltypes::kDelete); },
        };
        acts[Rows(w, Ltypes::kList) ? Below(6) : 2]();
    }

    ScriptedUser& user_;
    std::mt19937 rng_;
    int acts_;
    bool ok_;
};

class VisitInvariantTest : public FactoryTest, public ::testing::WithParamInterface<bool> {};

TEST_P(VisitInvariantTest, CancelRestoresOkIsOneUndoStep) {
    const bool layers = GetParam();
    constexpr unsigned kVisits = 150;
    unsigned changed = 0;  // visits kept by OK that changed the drawing
    for (unsigned seed = 1; seed <= kVisits; ++seed) {
        SCOPED_TRACE(seed);
        CVELD cad;
        BuildSampleDrawing(cad);
        const QByteArray dumped = drawingfile::Dump(cad);
        const QByteArray written = drawingfile::Write(cad);
        const bool ok = seed % 2 == 0;
        ScriptedUser user;
        RandomUser random(user, seed, ok);
        user.whenIdle = [&](QWidget* w) { random.Act(w); };
        if (layers)
            factory->ShowDlgLayer(nullptr, cad);
        else
            factory->ShowDlgLtype(nullptr, cad);
        ASSERT_TRUE(user.Finished()) << user.Report().toStdString();
        if (!ok) {
            ASSERT_EQ(drawingfile::Dump(cad), dumped);
            continue;
        }
        const QByteArray after = drawingfile::Write(cad);
        changed += after != written;
        ASSERT_TRUE(cad.Undo());
        ASSERT_EQ(drawingfile::Write(cad), written);
        ASSERT_TRUE(cad.Redo());
        ASSERT_EQ(drawingfile::Write(cad), after);
    }
    // The random user does change things: most visits kept are not empty.
    EXPECT_GT(changed, kVisits / 4);
}

INSTANTIATE_TEST_SUITE_P(Dialogs, VisitInvariantTest, ::testing::Values(true, false),
                         [](const auto& info) {
                             return std::string(info.param ? "Layers" : "Ltypes");
                         });

}  // namespace
