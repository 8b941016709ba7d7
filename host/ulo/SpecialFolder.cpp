#include "SpecialFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace ulo {

namespace {
QString& overrideFolder() {
    static QString f;
    return f;
}

QString supportFolder() {
    const QString env = qEnvironmentVariable("VELD_SUPPORT_DIR");
    if (!env.isEmpty())
        return env;
    if (!overrideFolder().isEmpty())
        return overrideFolder();
    const QString appDir =
        QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QDir::currentPath();
    const QString shared = QDir(appDir).absoluteFilePath(QStringLiteral("../share/veld/support"));
    if (QFileInfo(shared).isDir())
        return QDir::cleanPath(shared);
    return QDir(appDir).absoluteFilePath(QStringLiteral("support"));
}
}  // namespace

bool FGetSpecialFolderPathAndSubDir(int folder, const WString& subPath, WString& path) {
    path = WString();
    if (folder != kFolderSupport)
        return false;
    QString sub = subPath.ToQString();
    sub.replace(QLatin1Char('\\'), QLatin1Char('/'));
    while (sub.startsWith(QLatin1Char('/')))
        sub.remove(0, 1);
    // "support/veld.lin" names a file of the support folder itself.
    const QString prefix = QStringLiteral("support/");
    if (sub.startsWith(prefix, Qt::CaseInsensitive))
        sub.remove(0, prefix.size());
    const QString full = sub.isEmpty() ? supportFolder() : QDir(supportFolder()).filePath(sub);
    path = WString::FromQString(QDir::cleanPath(full));
    return true;
}

void SetSupportFolder(const WString& folder) {
    overrideFolder() = folder.ToQString();
}

WString EstraiIlPathFile(const WString& path) {
    const std::wstring& p = path.str();
    const auto pos = p.find_last_of(L"/\\");
    if (pos == std::wstring::npos)
        return WString();
    return WString(p.substr(0, pos + 1));
}

}  // namespace ulo
