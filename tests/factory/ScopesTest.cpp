// The operations' scope objects restore what they changed on every exit path.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTemporaryDir>
#include <stdexcept>

#include "automation/ScriptedUser.h"
#include "factory/Module.h"
#include "factory/Scopes.h"
#include "ulo/ctrl/MessageBox.h"

TEST(Scopes, ResourceModuleAndEventBracketRestoreOnExceptions) {
    const ulo::CResourceModule other("other", {}, {});
    ulo::AfxSetResourceHandle(&other);
    ulo::CSourceEvent source;
    try {
        veld5::CModuleResourceScope resources;
        veld5::CSourceEventScope events(&source);
        EXPECT_EQ(ulo::AfxGetResourceHandle(), static_cast<ulo::HINSTANCE>(veld5::Module()));
        EXPECT_EQ(source.GetDepth(), 1);
        throw std::runtime_error("dialog failed");
    } catch (const std::runtime_error&) {
    }
    EXPECT_EQ(ulo::AfxGetResourceHandle(), &other);
    EXPECT_EQ(source.GetDepth(), 0);
    ulo::AfxSetResourceHandle(nullptr);
    veld5::CSourceEventScope none(nullptr);  // no source: no bracket, no crash
}

TEST(ScriptedUser, AnswersFileDialogsAndHearsBeeps) {
    QTemporaryDir dir;
    const QString lin = dir.filePath(QStringLiteral("roads.lin"));
    QFile f(lin);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.close();
    automation::ScriptedUser user;
    // A look at the dialog first leaves the focus in its file name field,
    // which the answer must still reach.
    user.Inspect([](QWidget* w) {
            w->activateWindow();
            if (auto* name = w->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
                name->setFocus();
        })
        .AnswerFile(lin)
        .CancelFile();
    ulo::WString path;
    EXPECT_TRUE(ulo::GetOpenFileName(nullptr, L"Open", L"Linetype|*.lin",
                                     ulo::WString::FromQString(dir.path()), path));
    EXPECT_EQ(path.ToQString(), lin);
    EXPECT_FALSE(ulo::GetOpenFileName(nullptr, L"Open", L"Linetype|*.lin", L"", path));
    ulo::MessageBeep(ulo::MB_ICONEXCLAMATION);
    EXPECT_TRUE(user.Finished()) << user.Report().toStdString();
    EXPECT_EQ(user.Beeps(), 1);
}
