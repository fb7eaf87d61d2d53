#include "tests/metronome/SoundServer.h"

#include <QByteArray>
#include <QProcess>
#include <QStandardPaths>

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <vector>

namespace tamsel::test {

std::unique_ptr<ChildProcess> ChildProcess::start(const QStringList& command, Pipe pipe) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        return nullptr;
    std::vector<QByteArray> words;
    words.reserve(static_cast<std::size_t>(command.size()));
    for (const QString& word : command)
        words.push_back(word.toLocal8Bit());
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (QByteArray& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);

    const int piped = pipe == Pipe::StandardOutput ? STDOUT_FILENO : STDERR_FILENO;
    const int silenced = pipe == Pipe::StandardOutput ? STDERR_FILENO : STDOUT_FILENO;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], piped);
    posix_spawn_file_actions_addopen(&actions, silenced, "/dev/null", O_WRONLY, 0);
    pid_t process = 0;
    const int failure = ::posix_spawnp(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    if (failure != 0) {
        ::close(ends[0]);
        return nullptr;
    }
    return std::unique_ptr<ChildProcess>(new ChildProcess(process, ends[0]));
}

ChildProcess::~ChildProcess() {
    end();
    ::close(m_pipe);
}

void ChildProcess::end() {
    if (m_process == 0)
        return;
    ::kill(m_process, SIGTERM);
    ::waitpid(m_process, nullptr, 0);
    m_process = 0;
}

namespace {

// Reads until the server says that it is up. False where it ends before.
bool waitUntilUp(const ChildProcess& daemon) {
    QByteArray said;
    std::array<char, 4096> chunk{};
    while (!said.contains("Daemon startup complete")) {
        const ssize_t count = ::read(daemon.pipe(), chunk.data(), chunk.size());
        if (count <= 0)
            return false;
        said.append(chunk.data(), static_cast<qsizetype>(count));
    }
    return true;
}

} // namespace

std::unique_ptr<SoundServer> SoundServer::start(QString& reason) {
    if (QStandardPaths::findExecutable(QStringLiteral("pulseaudio")).isEmpty()) {
        reason = QStringLiteral("pulseaudio is not installed");
        return nullptr;
    }
    std::unique_ptr<SoundServer> server(new SoundServer);
    const QByteArray home = server->m_home.path().toLocal8Bit();
    qputenv("HOME", home);
    qputenv("XDG_RUNTIME_DIR", home);
    qputenv("XDG_CONFIG_HOME", home);
    for (const char* name : {"PULSE_SERVER", "PULSE_SINK", "PULSE_RUNTIME_PATH", "PULSE_CLIENTCONFIG", "DISPLAY",
                             "DBUS_SESSION_BUS_ADDRESS"})
        qunsetenv(name);
    const QString load = QStringLiteral("--load=");
    const QString sink = QStringLiteral("module-null-sink sink_name=%1 rate=44100 channels=2 format=float32le");
    server->m_daemon =
        ChildProcess::start({QStringLiteral("pulseaudio"), QStringLiteral("-n"), QStringLiteral("--daemonize=no"),
                             QStringLiteral("--exit-idle-time=60"), QStringLiteral("--log-target=stderr"),
                             QStringLiteral("--log-level=info"), load + QStringLiteral("module-native-protocol-unix"),
                             load + sink.arg(QStringLiteral("test"))},
                            ChildProcess::Pipe::StandardError);
    if (server->m_daemon == nullptr || !waitUntilUp(*server->m_daemon)) {
        reason = QStringLiteral("pulseaudio does not start");
        return nullptr;
    }
    server->m_drain = std::thread([pipe = server->m_daemon->pipe()] {
        std::array<char, 4096> chunk{};
        while (::read(pipe, chunk.data(), chunk.size()) > 0) {
        }
    });
    return server;
}

SoundServer::~SoundServer() {
    end();
}

bool SoundServer::control(const QStringList& arguments) {
    return QProcess::execute(QStringLiteral("pactl"), arguments) == 0;
}

void SoundServer::end() {
    if (m_daemon != nullptr)
        m_daemon->end();
    if (m_drain.joinable())
        m_drain.join();
}

} // namespace tamsel::test
