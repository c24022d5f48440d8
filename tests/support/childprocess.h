#pragma once

#include <QByteArray>
#include <QProcessEnvironment>
#include <QStringList>

#include <sys/types.h>

// A program the test starts and ends, started with posix_spawn rather than
// QProcess: Qt 5.15 starts children with clone(CLONE_PIDFD), which qemu-user
// refuses, so under emulation (the arm64 cross build) a QProcess never starts.
// Where the tests run under an emulator, the child runs under the same one.
class ChildProcess
{
public:
    enum class Output {
        Forwarded,      // stdout and stderr stay the test's
        Captured,       // stdout comes to readAll(), stderr stays the test's
        MergedCaptured, // stdout and stderr come to readAll()
    };

    ChildProcess() = default;
    ~ChildProcess(); // kills a child still running
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    void setEnvironment(const QProcessEnvironment &environment) { m_environment = environment.toStringList(); }
    // Where the child's stderr goes instead of the test's (a file, truncated).
    void setStandardErrorFile(const QString &path) { m_errorFile = path; }
    // A tool of the build machine (playerctl, say) runs without the emulator.
    void setEmulated(bool emulated) { m_emulated = emulated; }
    bool start(const QString &program, const QStringList &arguments, Output output = Output::Forwarded);

    // What the child has written so far, without waiting.
    QByteArray readAll();
    // Waits until the child writes something, ends, or the time is up.
    bool waitForReadyRead(int msecs);

    void terminate();
    void kill();
    // Waits until the child has ended; false when the time ran out.
    bool waitForFinished(int msecs = 30000);
    bool exitedNormally() const { return m_exited && m_normalExit; }
    int exitCode() const { return m_exitCode; }

private:
    bool reap();
    static bool waitReadable(int fd, int msecs);

    QStringList m_environment = QProcessEnvironment::systemEnvironment().toStringList();
    QString m_errorFile;
    pid_t m_pid = -1;
    int m_output = -1;   // read end of the child's stdout, when captured
    int m_lifeline = -1; // read end of a pipe the child holds open until it ends
    bool m_emulated = true;
    bool m_exited = false;
    bool m_normalExit = false;
    int m_exitCode = -1;
};
