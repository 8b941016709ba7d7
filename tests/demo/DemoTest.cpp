// The demo host as a person uses it: the sample drawing drawn, a tap selects,
// undo and redo from the menu, files saved and opened, and a missing library
// reported without a crash.
#include <gtest/gtest.h>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <cstring>
#include <functional>
#include <vector>

#include "DemoWindow.h"
#include "LauncherListener.h"
#include "NewPasswordDialog.h"
#include "SessionRunner.h"
#include "app/DrawingFile.h"
#include "app/view/VELDView.h"
#include "automation/OperationCatalogue.h"
#include "automation/ScriptedUser.h"
#include "ulo/ctrl/Win.h"
#include "veld/Data.h"
#include "veld/EntCollection.h"
#include "veld/SealedFile.h"

namespace {

QAction* action(DemoWindow& w, const QString& text) {
    for (QAction* a : w.findChildren<QAction*>())
        if (a->text().remove(QLatin1Char('&')) == text || a->objectName() == text)
            return a;
    return nullptr;
}

/// Screen position of the first point entity on @p layer.
QPoint pointOn(DemoWindow& w, const wchar_t* layer, veld::CEnt** found) {
    veld::CEntTable& ents = w.GetCAD().GetData()->GetEntTable();
    for (unsigned i = 0; i < ents.GetNoEnts(); ++i) {
        veld::CEnt* e = ents.GetEnt(i);
        if (e->GetKind() == veld::EntKind::Point && e->GetLayer()->GetName() == layer) {
            *found = e;
            const auto& p = e->GetPoints().front();
            return w.GetView()->GetTransform().ToScreen(p.x, p.y).toPoint();
        }
    }
    *found = nullptr;
    return {};
}

struct DemoFixture : ::testing::Test {
    DemoWindow window{QStringLiteral(VELD5_LIBRARY_PATH), QString()};
    void SetUp() override {
        window.resize(480, 640);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        QApplication::processEvents();
    }
};

}  // namespace

// Entries of operations the probe finds not built, and only those, are
// disabled once used.
TEST_F(DemoFixture, AnEntryWhoseDialogDoesNotShowIsDisabledOnceUsed) {
    EXPECT_GE(window.GetCAD().GetData()->GetEntTable().GetNoEnts(), 100u);
    EXPECT_FALSE(window.IsModified());
    const QStringList built = sessions::BuiltOperations(CreateFactory());
    veld::CEnt* tree = nullptr;
    const QPoint treeAt = pointOn(window, L"TREES", &tree);
    ASSERT_NE(tree, nullptr);
    for (const catalogue::Operation& op : catalogue::Operations()) {
        // The properties need a selection; the angle system clears it.
        if (GetSelectedEntCollection(&window.GetCAD()).GetNoEnts() == 0)
            QTest::mouseClick(window.GetView(), Qt::LeftButton, {}, treeAt);
        QAction* entry = action(window, QString::fromLatin1(op.name));
        ASSERT_TRUE(entry && entry->isEnabled()) << op.name;
        automation::ScriptedUser user;
        user.whenIdle = [&](QWidget*) { user.Close(); };
        entry->trigger();
        const bool isBuilt = built.contains(QLatin1String(op.name));
        EXPECT_EQ(entry->isEnabled(), isBuilt) << op.name;
        EXPECT_EQ(entry->toolTip() == QStringLiteral("not yet built"), !isBuilt) << op.name;
    }
    EXPECT_FALSE(window.IsModified()) << "every dialog was closed: nothing changed";
}

TEST_F(DemoFixture, TapSelectsAndDeselectsAndTheViewShowsIt) {
    veld::CEnt* tree = nullptr;
    const QPoint at = pointOn(window, L"TREES", &tree);
    ASSERT_NE(tree, nullptr);
    const QImage before = window.GetView()->grab().toImage();
    QTest::mouseClick(window.GetView(), Qt::LeftButton, {}, at);
    const veld::CEntCollection& sel = GetSelectedEntCollection(&window.GetCAD());
    ASSERT_EQ(sel.GetNoEnts(), 1u);
    EXPECT_EQ(sel.GetEnt(0)->GetLayer()->GetName(), L"TREES");
    QApplication::processEvents();
    EXPECT_NE(window.GetView()->grab().toImage(), before) << "the selection is drawn";

    QTest::mouseClick(window.GetView(), Qt::LeftButton, {}, at);
    EXPECT_EQ(sel.GetNoEnts(), 0u) << "a second tap deselects";
    QTest::mouseClick(window.GetView(), Qt::LeftButton, {}, at);
    QTest::mouseClick(window.GetView(), Qt::LeftButton, {}, QPoint(2, 2));
    EXPECT_EQ(sel.GetNoEnts(), 0u) << "a tap on nothing clears the selection";

    // A drag pans instead of selecting.
    const QPointF centre = window.GetView()->GetTransform().centre;
    QTest::mousePress(window.GetView(), Qt::LeftButton, {}, at);
    QTest::mouseMove(window.GetView(), at + QPoint(40, 0));
    QTest::mouseRelease(window.GetView(), Qt::LeftButton, {}, at + QPoint(40, 0));
    EXPECT_EQ(sel.GetNoEnts(), 0u);
    EXPECT_LT(window.GetView()->GetTransform().centre.x(), centre.x());
}

// Each picker's menu entry changes the drawing through one command that the
// Edit menu undoes and redoes: a colour and a line type given to the selected
// entities, line types loaded into the table.
TEST_F(DemoFixture, PickersChangeTheSelectionOrTheTablesUndoably) {
    CVELD& cad = window.GetCAD();
    QAction* undo = action(window, QStringLiteral("Undo"));
    QAction* redo = action(window, QStringLiteral("Redo"));
    ASSERT_TRUE(undo && redo);
    EXPECT_FALSE(undo->isEnabled());
    veld::CEnt* tree = nullptr;
    QTest::mouseClick(window.GetView(), Qt::LeftButton, {}, pointOn(window, L"TREES", &tree));
    ASSERT_NE(tree, nullptr);
    ASSERT_EQ(GetSelectedEntCollection(&cad).GetNoEnts(), 1u);
    const auto colour = [&] { return QString::number(tree->GetColor()); };
    const auto ltype = [&] { return QString::fromStdWString(tree->GetLtype()->GetName().str()); };
    const auto ltypes = [&] {
        return QString::number(cad.GetData()->GetLtypeTable().GetNoItems());
    };
    const struct {
        const char* entry;
        std::function<void(automation::ScriptedUser&)> steps;
        std::function<QString()> state;
        QString after;
    } cases[] = {
        // The third standard colour is green (3).
        {"ShowDlgColor", [](auto& u) { u.Press(11187, 0.25, 0.5).Click(11196); }, colour,
         QStringLiteral("3")},
        // Row 1 of the sample's list is DASHED.
        {"ShowDlgSelLtype", [](auto& u) { u.Tap(11203, 1, 0).Click(1163); }, ltype,
         QStringLiteral("DASHED")},
        // The library's second definition, DASHED2, is new to the drawing.
        {"ShowDlgLoadLtype", [](auto& u) { u.CheckRow(2000, 1).Click(1); }, ltypes, QString()},
    };
    for (const auto& c : cases) {
        const QString before = c.state();
        const QString after = c.after.isEmpty() ? QString::number(before.toInt() + 1) : c.after;
        ASSERT_NE(before, after) << c.entry;
        automation::ScriptedUser user;
        c.steps(user);
        QAction* entry = action(window, QString::fromLatin1(c.entry));
        ASSERT_TRUE(entry && entry->isEnabled()) << c.entry;
        entry->trigger();
        EXPECT_TRUE(user.Finished()) << c.entry << user.Report().toStdString();
        EXPECT_EQ(c.state(), after) << c.entry;
        EXPECT_TRUE(undo->isEnabled() && window.IsModified());
        EXPECT_TRUE(window.windowTitle().startsWith(QLatin1Char('*')));
        undo->trigger();
        EXPECT_EQ(c.state(), before) << c.entry;
        EXPECT_TRUE(redo->isEnabled());
        redo->trigger();
        EXPECT_EQ(c.state(), after) << c.entry;
        EXPECT_FALSE(redo->isEnabled());
    }
}

// A layer switched off in the layers dialog disappears from the view behind
// it at once; the visit is one step of the Edit menu's Undo and Redo.
TEST_F(DemoFixture, LayersDialogEditsShowBehindItAndUndoAsOneStep) {
    CVELD& cad = window.GetCAD();
    veld::CLayer* trees = cad.GetData()->GetLayerTable().Find(L"TREES");
    const auto picture = [&] {
        QApplication::processEvents();
        return window.GetView()->grab().toImage();
    };
    const QImage before = picture();
    QImage behind;
    const unsigned redraws = cad.GetRedrawCount();
    unsigned redrawsBehind = 0;
    automation::ScriptedUser user;
    user.Inspect([&](QWidget* dialog) {
        auto* list = qobject_cast<QAbstractItemView*>(ulo::FindControl(dialog, 1129));
        ASSERT_NE(list, nullptr);
        const QModelIndexList hits =
            list->model()->match(list->model()->index(0, 0), Qt::DisplayRole,
                                 QStringLiteral("TREES"), 1, Qt::MatchExactly);
        ASSERT_EQ(hits.size(), 1);
        user.Tap(1129, hits[0].row(), 1)
            .Inspect([&](QWidget*) {
                redrawsBehind = cad.GetRedrawCount();
                behind = picture();
            })
            .Click(ulo::IDOK);
    });
    action(window, QStringLiteral("ShowDlgLayer"))->trigger();
    EXPECT_TRUE(user.Finished()) << user.Report().toStdString();
    EXPECT_TRUE(trees->IsOff());
    EXPECT_GT(redrawsBehind, redraws) << "the views are asked to draw again";
    EXPECT_NE(behind, before) << "the trees are gone while the dialog is open";
    EXPECT_EQ(picture(), behind);
    action(window, QStringLiteral("Undo"))->trigger();
    EXPECT_FALSE(trees->IsOff());
    EXPECT_EQ(picture(), before);
    action(window, QStringLiteral("Redo"))->trigger();
    EXPECT_TRUE(trees->IsOff());
}

// The drafting aids from the menu: a typed point moves the cross-hair (and
// the status bar's coordinates) there; the object snap shows in the status bar.
TEST_F(DemoFixture, GoToPointAndObjectSnapShowInTheWindow) {
    QLabel* drafting = window.findChild<QLabel*>(QStringLiteral("drafting"));
    ASSERT_NE(drafting, nullptr);
    EXPECT_TRUE(drafting->text().startsWith(QStringLiteral("snap: free drawing")))
        << drafting->text().toStdString();
    automation::ScriptedUser user;
    user.Click(1137).Click(1138).Click(1139).Click(11196);
    action(window, QStringLiteral("ShowDlgOSnap"))->trigger();
    EXPECT_TRUE(user.Finished()) << user.Report().toStdString();
    EXPECT_TRUE(drafting->text().startsWith(QStringLiteral("snap: ")))
        << drafting->text().toStdString();
    EXPECT_FALSE(drafting->text().contains(QStringLiteral("free drawing")));

    const QImage before = window.GetView()->grab().toImage();
    automation::ScriptedUser point;
    point.Type(11185, QStringLiteral("12,5"))
        .Type(11186, QStringLiteral("-7.25"))
        .Type(11188, QStringLiteral("0"))
        .Click(11196);
    action(window, QStringLiteral("ShowDlSnapInsertPnt"))->trigger();
    EXPECT_TRUE(point.Finished()) << point.Report().toStdString();
    QLabel* pointer = window.findChild<QLabel*>(QStringLiteral("pointer"));
    ASSERT_NE(pointer, nullptr);
    EXPECT_EQ(pointer->text(), QStringLiteral("E 12.50  N -7.25"));
    QApplication::processEvents();
    EXPECT_NE(window.GetView()->grab().toImage(), before) << "the cross-hair is drawn there";
}

TEST_F(DemoFixture, SavedDrawingsOpenAgainTheSamePlainAndSealed) {
    QTemporaryDir dir;
    const QString plain = dir.filePath(QStringLiteral("plan.veld"));
    const QString sealed = dir.filePath(QStringLiteral("sealed.veld"));
    SetLtypeScale(&window.GetCAD(), 3.0);
    const QByteArray before = drawingfile::Write(window.GetCAD());
    ASSERT_TRUE(window.SaveFile(plain, QString()));
    EXPECT_FALSE(window.IsModified());
    EXPECT_TRUE(window.windowTitle().startsWith(QStringLiteral("plan.veld")));
    action(window, QStringLiteral("New"))->trigger();
    EXPECT_NE(drawingfile::Write(window.GetCAD()), before);
    ASSERT_TRUE(window.OpenFile(plain));
    EXPECT_EQ(drawingfile::Write(window.GetCAD()), before);

    using D = NewPasswordDialog;
    automation::ScriptedUser user;
    // Sealing: the new password twice, mistyped once; lower case as people type.
    user.Type(D::kIdPassword, QStringLiteral("secret"))
        .Type(D::kIdRepeat, QStringLiteral("secrat"))
        .Click(D::kIdOk)
        .Answer(ulo::IDOK)
        .Type(D::kIdRepeat, QStringLiteral("Secret"))
        .Click(D::kIdOk)
        .AnswerFile(sealed);
    action(window, QStringLiteral("Save with password..."))->trigger();
    ASSERT_TRUE(user.Finished()) << user.Report().toStdString();
    ASSERT_EQ(user.Messages().size(), 1u);
    EXPECT_TRUE(user.Messages()[0].text.contains(QLatin1String("differ")));

    // Opening: a new drawing first, then File, Open and the library's password dialog.
    action(window, QStringLiteral("New"))->trigger();
    user.AnswerFile(sealed).Type(4779, QStringLiteral("secret")).Click(11196);
    action(window, QStringLiteral("Open..."))->trigger();
    ASSERT_TRUE(user.Finished()) << user.Report().toStdString();
    EXPECT_EQ(drawingfile::Write(window.GetCAD()), before);

    // Saving again keeps the seal and its password.
    SetLtypeScale(&window.GetCAD(), 2.0);
    action(window, QStringLiteral("Save"))->trigger();
    QFile saved(sealed);
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    QByteArray json;
    EXPECT_TRUE(veld::CSealedFile::Open(saved.readAll(), L"SECRET", json));
}

TEST(LauncherListener, AnswersWhileTheDemosOwnThreadWaits) {
    // The module's start-up runs on the demo's thread and waits for the
    // answer: a listener served by that thread's event loop could only
    // answer after the wait. Here the thread blocks as the module does.
    QTemporaryDir dir;
    const QByteArray oldTmp = qgetenv("TMPDIR");
    qputenv("TMPDIR", dir.path().toLocal8Bit());
    LauncherListener listener;
    qputenv("TMPDIR", oldTmp);
    ASSERT_TRUE(listener.IsListening());
    QObject receiver;  // on this thread: the notification comes queued, as to the window
    std::vector<quint32> notified;
    QObject::connect(&listener, &LauncherListener::Notified, &receiver,
                     [&](quint32 message, quint32 wParam, quint32 lParam) {
                         notified = {message, wParam, lParam};
                     });

    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un addr{};
    addr.sun_family = AF_UNIX;
    const QByteArray path = dir.filePath(QStringLiteral("Avvio_Talpa")).toLocal8Bit();
    std::strncpy(addr.sun_path, path.constData(), sizeof addr.sun_path - 1);
    ASSERT_EQ(::connect(fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr), 0);
    const quint32 msg[3] = {1165, 1, 0};
    ASSERT_EQ(::send(fd, msg, sizeof msg, 0), static_cast<ssize_t>(sizeof msg));
    pollfd in{fd, POLLIN, 0};
    EXPECT_EQ(::poll(&in, 1, 10000), 1) << "no answer while this thread waited";
    ::close(fd);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !notified.empty(); }, 5000));
    EXPECT_EQ(notified, (std::vector<quint32>{1165, 1, 0}));
}

TEST(DemoWithoutLibrary, SaysSoAndDisablesTheOperations) {
    // The message box about the missing library is answered as a user would.
    bool told = false;
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, [&] {
        if (QWidget* box = QApplication::activeModalWidget()) {
            told = true;
            box->close();
        }
    });
    closer.start(20);
    DemoWindow window(QStringLiteral("/nonexistent/libveld5DlgCE.so"), QString());
    closer.stop();
    EXPECT_TRUE(told);
    EXPECT_FALSE(action(window, QStringLiteral("ShowDlgGetDouble"))->isEnabled());
    EXPECT_GE(window.GetCAD().GetData()->GetEntTable().GetNoEnts(), 100u)
        << "the drawing is still there";
}
