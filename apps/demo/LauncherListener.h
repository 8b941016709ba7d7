#pragma once
// Stands in for the launcher window the module notifies when it is loaded: a
// local socket named "Avvio_Talpa" in the temporary folder ($TMPDIR or /tmp).
// It is served on a thread of its own: the module's start-up runs on the
// demo's thread inside QLibrary::load and waits for the answer, which an
// event loop on that same thread could only give once the wait had timed out.
#include <QObject>
#include <atomic>
#include <string>
#include <thread>

class LauncherListener : public QObject {
    Q_OBJECT
public:
    explicit LauncherListener(QObject* parent = nullptr);
    ~LauncherListener() override;
    bool IsListening() const { return fd_ >= 0; }

Q_SIGNALS:
    /// A module reported itself (message, wParam, lParam); delivered on the
    /// listener's own thread's receivers through a queued connection.
    void Notified(quint32 message, quint32 wParam, quint32 lParam);

private:
    void Serve();

    std::string path_;
    int fd_ = -1;
    int wake_[2] = {-1, -1};  // written to end the serving thread
    std::thread thread_;
};
