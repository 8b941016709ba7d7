// The factory operations veld-play can call, with their arguments' defaults.
// Adding one is one entry here. An operation that works on the drawing takes
// the CAD instance from c.CAD() and sets c.error when the host has none.
#include <memory>

#include "Player.h"
#include "factory/IVELDDlgFactory.h"
#include "veld/FileReaderPasswordRequest.h"

namespace veldplay {

const QMap<QString, Operation>& Operations() {
    static const QMap<QString, Operation> ops = {
        {QStringLiteral("ShowDlgGetDouble"),
         [](OperationCall& c) -> QJsonValue {
             double value = c.Number(QStringLiteral("value"), 0.0);
             const std::wstring title = c.Text(QStringLiteral("title"), QString()).toStdWString();
             const long r = c.factory->ShowDlgGetDouble(
                 nullptr, title.c_str(), value, c.Flag(QStringLiteral("allowNegative"), true),
                 c.Flag(QStringLiteral("allowZero"), true),
                 c.Flag(QStringLiteral("allowPositive"), true));
             c.numbers.insert(QStringLiteral("value"), value);
             return static_cast<int>(r);
         }},
        {QStringLiteral("ShowDlgRotate"),
         [](OperationCall& c) -> QJsonValue {
             double angle = c.Number(QStringLiteral("angle"), 0.0);
             const long r = c.factory->ShowDlgRotate(nullptr, angle);
             c.numbers.insert(QStringLiteral("angle"), angle);
             return static_cast<int>(r);
         }},
        {QStringLiteral("ShowDlgGetString"),
         [](OperationCall& c) -> QJsonValue {
             ulo::WString result =
                 ulo::WString::FromQString(c.Text(QStringLiteral("text"), QString()));
             const bool ok = c.factory->ShowDlgGetString(
                 nullptr,
                 ulo::WString::FromQString(
                     c.Text(QStringLiteral("caption"), QStringLiteral("Enter..."))),
                 ulo::WString::FromQString(
                     c.Text(QStringLiteral("prompt"), QStringLiteral("Insert value:"))),
                 result);
             c.out.insert(QStringLiteral("text"), result.ToQString());
             return ok;
         }},
        {QStringLiteral("GetDlgPasswordRequest"),
         [](OperationCall& c) -> QJsonValue {
             // Shows the password dialog as the drawing reader would, then,
             // with retry=1, the question after a wrong password.
             std::unique_ptr<veld::IFileReaderPasswordRequest> req(
                 c.factory->GetDlgPasswordRequest(nullptr));
             if (!req)
                 return QJsonValue();
             ulo::WString password;
             const bool ok = req->RequestPassword(password, L"drawing");
             c.out.insert(QStringLiteral("password"),
                          ok ? QJsonValue(password.ToQString()) : QJsonValue());
             if (c.Flag(QStringLiteral("retry"), false))
                 c.out.insert(QStringLiteral("retry"), req->AskRetry(L"drawing"));
             return ok;
         }},
    };
    return ops;
}

}  // namespace veldplay
