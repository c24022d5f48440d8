#include "childprocess.h"

#include <QDeadlineTimer>
#include <QFile>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

// The emulator the tests themselves run under, empty for native builds.
constexpr char kEmulator[] = TUNER_TEST_EMULATOR;

void closeFd(int &fd)
{
    if (fd >= 0)
        ::close(fd);
    fd = -1;
}

} // namespace

ChildProcess::~ChildProcess()
{
    if (m_pid > 0 && !m_exited) {
        kill();
        waitForFinished();
    }
    closeFd(m_output);
    closeFd(m_lifeline);
}

bool ChildProcess::start(const QString &program, const QStringList &arguments, Output output)
{
    int outputPipe[2] = {-1, -1};
    int lifelinePipe[2] = {-1, -1};
    if ((output != Output::Forwarded && ::pipe2(outputPipe, O_CLOEXEC) != 0) || ::pipe2(lifelinePipe, O_CLOEXEC) != 0)
        return false;

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    if (output != Output::Forwarded) {
        posix_spawn_file_actions_adddup2(&actions, outputPipe[1], STDOUT_FILENO);
        if (output == Output::MergedCaptured)
            posix_spawn_file_actions_adddup2(&actions, outputPipe[1], STDERR_FILENO);
    }
    const QByteArray errorFile = QFile::encodeName(m_errorFile);
    if (!errorFile.isEmpty())
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, errorFile.constData(), O_WRONLY | O_CREAT | O_TRUNC,
                                         0644);
    // dup2 onto itself clears close-on-exec: the child keeps the write end
    // until it (and the emulator around it) ends, which tells waitForFinished.
    posix_spawn_file_actions_adddup2(&actions, lifelinePipe[1], lifelinePipe[1]);

    QList<QByteArray> argv8;
    if (m_emulated && kEmulator[0] != '\0')
        argv8 << QByteArray(kEmulator);
    argv8 << QFile::encodeName(program);
    for (const QString &argument : arguments)
        argv8 << argument.toLocal8Bit();
    const QList<QByteArray> env8 = [this] {
        QList<QByteArray> env;
        for (const QString &variable : m_environment)
            env << variable.toLocal8Bit();
        return env;
    }();
    std::vector<char *> argv, envp;
    for (const QByteArray &a : argv8)
        argv.push_back(const_cast<char *>(a.constData()));
    argv.push_back(nullptr);
    for (const QByteArray &e : env8)
        envp.push_back(const_cast<char *>(e.constData()));
    envp.push_back(nullptr);

    const int spawned = ::posix_spawn(&m_pid, argv.front(), &actions, nullptr, argv.data(), envp.data());
    posix_spawn_file_actions_destroy(&actions);
    ::close(lifelinePipe[1]);
    m_lifeline = lifelinePipe[0];
    if (output != Output::Forwarded) {
        ::close(outputPipe[1]);
        m_output = outputPipe[0];
    }
    if (spawned != 0) {
        m_pid = -1;
        return false;
    }
    m_exited = false;
    return true;
}

QByteArray ChildProcess::readAll()
{
    QByteArray all;
    char buffer[4096];
    while (m_output >= 0 && waitReadable(m_output, 0)) {
        const ssize_t n = ::read(m_output, buffer, sizeof buffer);
        if (n <= 0)
            break;
        all.append(buffer, int(n));
    }
    return all;
}

bool ChildProcess::waitForReadyRead(int msecs)
{
    return m_output >= 0 && waitReadable(m_output, msecs);
}

void ChildProcess::terminate()
{
    if (m_pid > 0 && !m_exited)
        ::kill(m_pid, SIGTERM);
}

void ChildProcess::kill()
{
    if (m_pid > 0 && !m_exited)
        ::kill(m_pid, SIGKILL);
}

bool ChildProcess::waitForFinished(int msecs)
{
    if (m_pid <= 0)
        return false;
    // The lifeline's write end closes when the child ends; then it can be reaped.
    if (!m_exited && !waitReadable(m_lifeline, msecs))
        return false;
    return reap();
}

bool ChildProcess::reap()
{
    if (m_exited)
        return true;
    int status = 0;
    pid_t done;
    do {
        done = ::waitpid(m_pid, &status, 0);
    } while (done < 0 && errno == EINTR);
    if (done != m_pid)
        return false;
    m_exited = true;
    m_normalExit = WIFEXITED(status);
    m_exitCode = m_normalExit ? WEXITSTATUS(status) : -1;
    return true;
}

bool ChildProcess::waitReadable(int fd, int msecs)
{
    const QDeadlineTimer deadline(msecs);
    pollfd watched{fd, POLLIN, 0};
    int ready;
    do {
        ready = ::poll(&watched, 1, int(deadline.remainingTime()));
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}
