// Source events, special folders and the message box answers. (String
// loading: StringTableTest; the folder part of a path: LoadDialogTest.)
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include "ulo/SourceEvent.h"
#include "ulo/SpecialFolder.h"
#include "ulo/ctrl/MessageBox.h"

using ulo::WString;

namespace {
struct Counter : ulo::ISourceEventListener {
    int calls = 0;
    void OnSourceEvent(ulo::CSourceEvent&) override { ++calls; }
};
}  // namespace

// Brackets nest, and only the outermost one that saw a change notifies, also
// when left by an exception.
TEST(SourceEvent, OneNotificationPerOutermostBracket) {
    ulo::CSourceEvent source;
    Counter listener;
    source.AddListener(&listener);
    {
        ulo::CSourceEventBracket outer(&source);
        source.Changed();
        {
            ulo::CSourceEventBracket inner(&source);
            source.Changed();
        }
        EXPECT_EQ(listener.calls, 0);
        source.Changed();
    }
    EXPECT_EQ(listener.calls, 1);
    source.Changed();  // outside a bracket: at once
    EXPECT_EQ(listener.calls, 2);
    {
        ulo::CSourceEventBracket quiet(&source);  // no change, no notification
    }
    EXPECT_EQ(listener.calls, 2);
    try {
        ulo::CSourceEventBracket b(&source);
        source.Changed();
        throw 1;
    } catch (int) {
    }
    EXPECT_EQ(source.GetDepth(), 0);
    EXPECT_EQ(listener.calls, 3);
    source.EndEvent();  // unbalanced: ignored
    EXPECT_EQ(source.GetDepth(), 0);
}

TEST(SpecialFolder, SupportPathsAcceptBackslashes) {
    const QByteArray saved = qgetenv("VELD_SUPPORT_DIR");
    qputenv("VELD_SUPPORT_DIR", "/opt/veld/support");
    struct {
        const wchar_t *sub, *path;
    } const rows[] = {{L"Support\\veld.lin", L"/opt/veld/support/veld.lin"},
                      {L"bitmaps\\Font.bmp", L"/opt/veld/support/bitmaps/Font.bmp"},
                      {L"Font_TT.bmp", L"/opt/veld/support/Font_TT.bmp"},
                      {L"", L"/opt/veld/support"}};
    for (const auto& r : rows) {
        WString path;
        EXPECT_TRUE(ulo::FGetSpecialFolderPathAndSubDir(1, r.sub, path));
        EXPECT_EQ(path, r.path);
    }
    WString path(L"x");
    EXPECT_FALSE(ulo::FGetSpecialFolderPathAndSubDir(7, L"a", path));
    EXPECT_TRUE(path.IsEmpty());
    qputenv("VELD_SUPPORT_DIR", saved);
}

TEST(MessageBoxes, FlagsGiveTheirButtonsAndAnswers) {
    struct {
        unsigned flags;
        QMessageBox::StandardButton press;
        int answer;
    } const rows[] = {{48, QMessageBox::Ok, ulo::IDOK},
                      {36, QMessageBox::Yes, ulo::IDYES},
                      {36, QMessageBox::No, ulo::IDNO},
                      {35, QMessageBox::Cancel, ulo::IDCANCEL},
                      {35, QMessageBox::NoButton, ulo::IDCANCEL}};  // closed with Escape
    for (const auto& r : rows) {
        QTimer::singleShot(0, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->property(ulo::prop::kFlags).toUInt(), r.flags);
            if (r.press == QMessageBox::NoButton)
                box->reject();
            else
                box->button(r.press)->click();
        });
        EXPECT_EQ(ulo::CreateMessageBox(nullptr, L"Warning", L"Text", r.flags), r.answer);
    }
}
