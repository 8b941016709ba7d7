// Texts in this file are ASCII literals: let them convert.
#undef QT_NO_CAST_FROM_ASCII
// The demo host as a person uses it: every operation from the menu and the host's part in
// it, sealed files, the launcher's notification, a missing library.
#include <gtest/gtest.h>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>
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

struct DemoFixture : ::testing::Test {
    DemoWindow window{QStringLiteral(VELD5_LIBRARY_PATH), QString()};
    veld::CEnt* tree = nullptr;  ///< a point on the layer TREES, at treeAt on the screen
    QPoint treeAt;
    void SetUp() override {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        QApplication::processEvents();
        const veld::CEntTable& ents = window.GetCAD().GetData()->GetEntTable();
        for (unsigned i = 0; i < ents.GetNoEnts() && !tree; ++i)
            if (ents.GetEnt(i)->GetKind() == veld::EntKind::Point &&
                ents.GetEnt(i)->GetLayer()->GetName() == L"TREES")
                tree = ents.GetEnt(i);
        ASSERT_NE(tree, nullptr);
        const auto& p = tree->GetPoints().front();
        treeAt = window.GetView()->GetTransform().ToScreen(p.x, p.y).toPoint();
    }
};

}  // namespace

// A tap selects what lies under it and a second tap there deselects it; a tap
// on nothing clears the selection; a drag pans and selects nothing.
TEST_F(DemoFixture, TapsSelectAndDeselectAndADragPans) {
    CVELDView* view = window.GetView();
    const veld::CEntCollection& sel = GetSelectedEntCollection(&window.GetCAD());
    const QImage before = view->grab().toImage();
    QTest::mouseClick(view, Qt::LeftButton, {}, treeAt);
    ASSERT_EQ(sel.GetNoEnts(), 1u);
    EXPECT_EQ(sel.GetEnt(0), tree);
    QApplication::processEvents();
    EXPECT_NE(view->grab().toImage(), before) << "the selection is drawn";
    QTest::mouseClick(view, Qt::LeftButton, {}, treeAt);
    EXPECT_EQ(sel.GetNoEnts(), 0u) << "a second tap deselects";
    QTest::mouseClick(view, Qt::LeftButton, {}, treeAt);
    QTest::mouseClick(view, Qt::LeftButton, {}, QPoint(2, 2));
    EXPECT_EQ(sel.GetNoEnts(), 0u) << "a tap on nothing clears the selection";

    const double centreX = view->GetTransform().centre.x();
    QTest::mousePress(view, Qt::LeftButton, {}, treeAt);
    QTest::mouseMove(view, treeAt + QPoint(40, 0));
    QTest::mouseRelease(view, Qt::LeftButton, {}, treeAt + QPoint(40, 0));
    EXPECT_EQ(sel.GetNoEnts(), 0u) << "a drag selects nothing";
    EXPECT_LT(view->GetTransform().centre.x(), centreX) << "a drag to the right pans";
}

// Entries of operations the probe finds not built, and only those, are disabled once used.
TEST_F(DemoFixture, AnEntryWhoseDialogDoesNotShowIsDisabledOnceUsed) {
    const QStringList built = sessions::BuiltOperations(CreateFactory());
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
        EXPECT_EQ(entry->toolTip() == "not yet built", !isBuilt) << op.name;
    }
    EXPECT_FALSE(window.IsModified()) << "every dialog was closed: nothing changed";
}

// An entry does the host's part with what its dialog gave: a colour and a line type given
// to the entities a tap selected, line types loaded, a layer switched off (the view behind
// the dialog shows it at once), each one command of Edit's Undo and Redo; a typed point
// moves the cross-hair.
TEST_F(DemoFixture, EntriesDoTheHostsPartWithWhatTheDialogGave) {
    CVELD& cad = window.GetCAD();
    QTest::mouseClick(window.GetView(), Qt::LeftButton, {}, treeAt);
    ASSERT_EQ(GetSelectedEntCollection(&cad).GetNoEnts(), 1u);
    const auto picture = [&] {
        QApplication::processEvents();
        return window.GetView()->grab().toImage();
    };
    const QImage before = picture();
    QImage behind;
    veld::CLayer* trees = cad.GetData()->GetLayerTable().Find(L"TREES");
    const struct {
        const char* entry;
        std::function<void(automation::ScriptedUser&)> steps;
        std::function<QString()> state;
        QString after;  ///< empty: one more than before
        bool command = true;
    } cases[] = {
        // The third standard colour is green (3).
        {"ShowDlgColor", [](auto& u) { u.Press(11187, 0.25, 0.5).Click(11196); },
         [&] { return QString::number(tree->GetColor()); }, "3"},
        // Row 1 of the sample's list is DASHED.
        {"ShowDlgSelLtype", [](auto& u) { u.Tap(11203, 1, 0).Click(1163); },
         [&] { return QString::fromStdWString(tree->GetLtype()->GetName().str()); }, "DASHED"},
        // The library's second definition, DASHED2, is new to the drawing.
        {"ShowDlgLoadLtype", [](auto& u) { u.CheckRow(2000, 1).Click(1); },
         [&] { return QString::number(cad.GetData()->GetLtypeTable().GetNoItems()); }, QString()},
        // Row 10 of the layers list is TREES; column 1 switches it off.
        {"ShowDlgLayer",
         [&](auto& u) {
             u.Tap(1129, 10, 1).Inspect([&](QWidget*) { behind = picture(); }).Click(1);
         },
         [&] { return QString::fromLatin1(trees->IsOff() ? "off" : "on"); }, "off"},
        {"ShowDlSnapInsertPnt",
         [](auto& u) {
             u.Type(11185, "12,5").Type(11186, "-7.25");
             u.Type(11188, "0").Click(11196);
         },
         [&] { return window.findChild<QLabel*>("pointer")->text(); }, "E 12.50  N -7.25", false},
    };
    for (const auto& c : cases) {
        const QString was = c.state();
        const QString after = c.after.isEmpty() ? QString::number(was.toInt() + 1) : c.after;
        ASSERT_NE(was, after) << c.entry;
        const int commands = cad.GetUndoList().GetCount();
        automation::ScriptedUser user;
        c.steps(user);
        action(window, QString::fromLatin1(c.entry))->trigger();
        EXPECT_TRUE(user.Finished()) << c.entry << user.Report().toStdString();
        EXPECT_EQ(c.state(), after) << c.entry;
        EXPECT_EQ(cad.GetUndoList().GetCount(), commands + (c.command ? 1 : 0)) << c.entry;
        if (!c.command)
            continue;
        EXPECT_TRUE(window.windowTitle().startsWith(QLatin1Char('*')));
        action(window, "Undo")->trigger();
        EXPECT_EQ(c.state(), was) << c.entry;
        action(window, "Redo")->trigger();
        EXPECT_EQ(c.state(), after) << c.entry;
    }
    EXPECT_NE(behind, before) << "the trees are gone while the dialog is open";
}

// Sealing asks the new password twice, opening asks for it, saving again keeps the seal.
TEST_F(DemoFixture, ASealedDrawingOpensAgainWithItsPassword) {
    QTemporaryDir dir;
    const QString sealed = dir.filePath("sealed.veld");
    SetLtypeScale(&window.GetCAD(), 3.0);
    const QByteArray before = drawingfile::Write(window.GetCAD());
    using D = NewPasswordDialog;
    automation::ScriptedUser user;
    // Mistyped once; lower case, as people type.
    user.Type(D::kIdPassword, "secret").Type(D::kIdRepeat, "secrat").Click(D::kIdOk);
    user.Answer(ulo::IDOK).Type(D::kIdRepeat, "Secret").Click(D::kIdOk).AnswerFile(sealed);
    action(window, "Save with password...")->trigger();
    ASSERT_TRUE(user.Finished()) << user.Report().toStdString();
    EXPECT_TRUE(user.Messages().at(0).text.contains("differ"));

    action(window, "New")->trigger();
    EXPECT_NE(drawingfile::Write(window.GetCAD()), before);
    user.AnswerFile(sealed).Type(4779, "secret").Click(11196);
    action(window, "Open...")->trigger();
    ASSERT_TRUE(user.Finished()) << user.Report().toStdString();
    EXPECT_EQ(drawingfile::Write(window.GetCAD()), before);

    SetLtypeScale(&window.GetCAD(), 2.0);
    action(window, "Save")->trigger();
    QFile saved(sealed);
    QByteArray json;
    EXPECT_TRUE(saved.open(QIODevice::ReadOnly) &&
                veld::CSealedFile::Open(saved.readAll(), L"SECRET", json));
}

TEST(LauncherListener, AnswersWhileTheDemosOwnThreadWaits) {
    // The module's start-up blocks the demo's thread until answered: a listener served by
    // that thread's event loop could only answer after the wait. This thread blocks so.
    QTemporaryDir dir;
    const QByteArray oldTmp = qgetenv("TMPDIR");
    qputenv("TMPDIR", dir.path().toLocal8Bit());
    LauncherListener listener;
    qputenv("TMPDIR", oldTmp);
    ASSERT_TRUE(listener.IsListening());
    QObject receiver;  // on this thread: the notification comes queued, as to the window
    std::vector<quint32> notified;
    QObject::connect(&listener, &LauncherListener::Notified, &receiver,
                     [&](quint32 m, quint32 w, quint32 l) {
                         notified = {m, w, l};
                     });
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un addr{};
    addr.sun_family = AF_UNIX;
    const QByteArray path = QFile::encodeName(dir.filePath("Avvio_Talpa"));
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
    automation::ScriptedUser user;
    user.Answer(ulo::IDOK);  // the message box that says so
    DemoWindow window("/nonexistent/libveld5DlgCE.so", QString());
    ASSERT_TRUE(user.Finished()) << user.Report().toStdString();
    EXPECT_FALSE(action(window, "ShowDlgGetDouble")->isEnabled());
    EXPECT_GE(window.GetCAD().GetData()->GetEntTable().GetNoEnts(), 100u);  // still there
}
