// SPDX-License-Identifier: MIT
#include "ToolRun.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace zarn::test;

/// The program on a terminal of its own, typed to as by a person.
class Session {
public:
    explicit Session(const QString &home)
    {
        winsize size = {};
        size.ws_row = 40;
        size.ws_col = 100;
        _child = ::forkpty(&_terminal, nullptr, nullptr, &size);
        if (_child != 0)
            return;
        ::setenv("TERM", "xterm", 1);
        ::setenv("LC_ALL", "C.UTF-8", 1);
        ::setenv("HOME", home.toLocal8Bit().constData(), 1);
        ::setenv("XDG_DATA_HOME", home.toLocal8Bit().constData(), 1);
        ::execl(ZARN_BINARY_DIR "/bin/zarn", "zarn", "edit",
                ZARN_SOURCE_DIR "/Samples/romance-guitar-study.musicxml", nullptr);
        ::_exit(127);
    }
    ~Session()
    {
        if (isOpen() && !hasEnded()) {
            ::kill(_child, SIGKILL);
            ::waitpid(_child, nullptr, 0);
        }
        ::close(_terminal);
    }

    /// False where the machine has no pseudo terminals to give, as in a bare container.
    bool isOpen() const { return _child > 0; }

    void type(const std::string &text)
    {
        EXPECT_EQ(::write(_terminal, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }

    /// Reads until a text has appeared since the last call; false when it never does.
    bool waitFor(const std::string &text, int patience = 60000)
    {
        while (_unread.find(text) == std::string::npos) {
            pollfd waiting = {_terminal, POLLIN, 0};
            char buffer[4096];
            if (::poll(&waiting, 1, patience) <= 0)
                return false;
            const ssize_t count = ::read(_terminal, buffer, sizeof buffer);
            if (count <= 0)
                return false;
            _unread.append(buffer, static_cast<std::size_t>(count));
        }
        _unread.erase(0, _unread.find(text) + text.size());
        return true;
    }

    const std::string &unread() const { return _unread; }

    /// Waits for a prompt and until the terminal takes single characters: what is typed while it
    /// is being switched may be lost.
    bool waitForPrompt(const std::string &prompt = "zarn> ")
    {
        if (!waitFor(prompt))
            return false;
        for (int i = 0; i < Tries; ++i) {
            termios mode = {};
            if (::tcgetattr(_terminal, &mode) == 0 && (mode.c_lflag & ICANON) == 0)
                return true;
            pause();
        }
        return false;
    }

    /// The exit code; 255 when the program does not end.
    int exitCode()
    {
        for (int i = 0; i < Tries && !hasEnded(); ++i) {
            waitFor("never printed", 1);
            pause();
        }
        return _code < 0 ? 255 : _code;
    }

private:
    static constexpr int Tries = 6000;

    static void pause() { std::this_thread::sleep_for(std::chrono::milliseconds(10)); }

    /// Gives a program that has closed its terminal the time to end.
    bool hasEnded()
    {
        int status = 0;
        if (_code < 0 && ::waitpid(_child, &status, WNOHANG) == _child)
            _code = WIFEXITED(status) ? WEXITSTATUS(status) : 255;
        else if (_code < 0)
            ::usleep(20000);
        return _code >= 0;
    }

    int _terminal = -1;
    pid_t _child = -1;
    int _code = -1;
    std::string _unread;
};

TEST(Interactive, mistakesGoOnCompletionHelpsAndLeavingAsks)
{
    const Folder home;
    Session session(home.file("."));
    if (!session.isOpen())
        GTEST_SKIP() << "there is no pseudo terminal here";
    ASSERT_TRUE(session.waitForPrompt());
    session.type("fret 1:1 9 3\n");
    EXPECT_TRUE(session.waitFor("there is no string 9")) << session.unread();
    EXPECT_TRUE(session.waitForPrompt());
    session.type("prop\ttit\tSolo\n"); // property title Solo
    EXPECT_TRUE(session.waitForPrompt()) << session.unread();
    session.type("quit\n");
    EXPECT_TRUE(session.waitForPrompt("or stay: ")) << session.unread();
    session.type("stay\n");
    EXPECT_TRUE(session.waitForPrompt());
    session.type("undo\n");
    EXPECT_TRUE(session.waitFor("Undid 1 step."));
    EXPECT_TRUE(session.waitForPrompt());
    session.type("redo\n");
    EXPECT_TRUE(session.waitForPrompt());
    session.type("quit\n");
    EXPECT_TRUE(session.waitForPrompt("or stay: "));
    session.type("yes\n");
    EXPECT_TRUE(session.waitForPrompt("File to save to: "));
    const QString file = home.file("typed.zarn");
    session.type(file.toStdString() + "\n");
    EXPECT_EQ(session.exitCode(), 0);
    EXPECT_TRUE(contains(runTool({QStringLiteral("info"), file}).out, "Title: Solo\n"));
}

TEST(Interactive, endOfInputLeavesAndTheHistoryIsKept)
{
    const Folder home;
    {
        Session session(home.file("."));
        if (!session.isOpen())
            GTEST_SKIP() << "there is no pseudo terminal here";
        ASSERT_TRUE(session.waitForPrompt());
        session.type("compare\n");
        EXPECT_TRUE(session.waitFor("is what it was"));
        EXPECT_TRUE(session.waitForPrompt());
        session.type("\x04");
        EXPECT_EQ(session.exitCode(), 0);
    }
    Session session(home.file("."));
    ASSERT_TRUE(session.waitForPrompt());
    session.type("\x1b[A\n"); // the line before
    EXPECT_TRUE(session.waitFor("is what it was")) << session.unread();
    EXPECT_TRUE(session.waitForPrompt());
    session.type("quit\n");
    EXPECT_EQ(session.exitCode(), 0);
}

} // namespace
