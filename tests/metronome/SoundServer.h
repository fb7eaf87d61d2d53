#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <sys/types.h>

#include <memory>
#include <thread>

namespace tamsel::test {

// A program that runs beside the test, with a pipe from its standard output or standard error. Ended with the object.
class ChildProcess {
public:
    enum class Pipe { StandardOutput, StandardError };

    static std::unique_ptr<ChildProcess> start(const QStringList& command, Pipe pipe);
    ~ChildProcess();

    // The reading end.
    int pipe() const { return m_pipe; }
    // Ends the program and waits for it.
    void end();

private:
    ChildProcess(pid_t process, int pipe) : m_process(process), m_pipe(pipe) {}

    pid_t m_process;
    int m_pipe;
};

// A sound server of the test's own, with one silent sink named "test" at 44100 Hz in stereo floats. While it lives, the
// process's environment leads every client to it.
class SoundServer {
public:
    // None where the server cannot be started; `reason` says why.
    static std::unique_ptr<SoundServer> start(QString& reason);
    ~SoundServer();

    // Runs pactl with those arguments. Returns whether it succeeded.
    bool control(const QStringList& arguments);

    // Ends the server before its time.
    void end();

private:
    SoundServer() = default;

    QTemporaryDir m_home;
    std::unique_ptr<ChildProcess> m_daemon;
    std::thread m_drain; // reads what the server says, which nobody needs once it is up
};

} // namespace tamsel::test
