// tqm pm with tqm notify, message and exchange in further processes, as a
// user runs them in two terminals; tqm molecule across processes; tqm exec.
#include "diag/DebugOutput.h"
#include "support/ListenerProcess.h"
#include "support/TqmProgram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using tqmtest::Contains;
using tqmtest::RunTqm;
using tqmtest::TqmRun;

class CooperationCommands : public testing::Test
{
protected:
    void SetUp() override
    {
        if (FindWindowA(TARN_PROJECT_MANAGER_WINDOW_CLASS, nullptr))
            GTEST_SKIP() << "a project manager runs on this desktop";
    }
};

TEST_F(CooperationCommands, PmPrintsWhatTheOtherCommandsSend)
{
    tqmtest::ListenerProcess pm(TARN_PROJECT_MANAGER_WINDOW_CLASS);
    ASSERT_TRUE(pm.start({"pm", "--count", "4"}));
    EXPECT_EQ(1, RunTqm({"pm"}).exitCode) << "a second stand-in";

    EXPECT_EQ(0, RunTqm({"notify", "C:\\Projects\\Pump\\Main.st", "compiled"}).exitCode);
    EXPECT_EQ(0, RunTqm({"message", "Warning: tank low"}).exitCode);
    EXPECT_EQ(0, RunTqm({"message", "--level", "7", "custom"}).exitCode);
    TqmRun reply = RunTqm({"exchange", "TqmTest.Cmd", "status?"});
    EXPECT_EQ(0, reply.exitCode) << reply.err << pm.errors();
    EXPECT_EQ("status?\n", reply.out);
    ASSERT_EQ(0, pm.wait()) << pm.errors();

    // The notification is posted, the message lines are sent: a sent message
    // may overtake a posted one that waits in the queue.
    std::vector<std::string> received;
    for (const std::string& line : pm.lines())
        received.push_back(line.substr(14));
    std::sort(received.begin(), received.end());
    const std::vector<std::string> expected = {"exchange  TqmTest.Cmd | status? | 7 bytes replied",
                                               "message   1 | Warning: tank low", "message   7 | custom",
                                               "saved     C:\\Projects\\Pump\\Main.st | compiled"};
    EXPECT_EQ(expected, received) << pm.output();
}

TEST_F(CooperationCommands, FixedReplyAndRefusalsWithoutProjectManager)
{
    {
        tqmtest::ListenerProcess pm(TARN_PROJECT_MANAGER_WINDOW_CLASS);
        ASSERT_TRUE(pm.start({"pm", "--reply", "fixed answer"}));
        EXPECT_EQ("fixed answer\n", RunTqm({"exchange", "TqmTest.Fixed", "anything"}).out);
    }
    for (const std::vector<std::string>& args :
         {std::vector<std::string>{"notify", "a.st"}, {"message", "x"}, {"exchange", "S", "x"}}) {
        TqmRun r = RunTqm(args);
        EXPECT_EQ(1, r.exitCode) << args[0];
        EXPECT_TRUE(Contains(r.err, "no project manager is running")) << r.err;
    }
    const std::vector<std::vector<std::string>> usage = {
        {"notify"}, {"message", "--level", "x", "t"}, {"exchange", "S", std::string(10241, 'r')},
        {"pm", "--reply", "a", "--reply", "b"}, {"molecule", "get", "xyz"}, {"exec"},
    };
    for (const auto& args : usage)
        EXPECT_EQ(2, RunTqm(args).exitCode) << args[0] << " " << args.size();
}

TEST(MoleculeCommand, AddInOneProcessReadAndDeleteInOthers)
{
    const std::string text = "molecule command " + std::to_string(GetCurrentProcessId()) + std::string(600, 'm');
    TqmRun added = RunTqm({"molecule", "add", text});
    ASSERT_EQ(0, added.exitCode) << added.err;
    EXPECT_EQ("*03;", added.out.substr(5, 4)) << added.out;  // "HHHH *03;..."
    const std::string atom = added.out.substr(0, 4);

    TqmRun got = RunTqm({"molecule", "get", atom});
    EXPECT_EQ(0, got.exitCode) << got.err;
    EXPECT_EQ(text + "\n", got.out);
    EXPECT_EQ(0, RunTqm({"molecule", "delete", atom}).exitCode);
    EXPECT_EQ(1, RunTqm({"molecule", "get", atom}).exitCode);

    TqmRun tooLong = RunTqm({"molecule", "add", std::string(6630, 'x')});
    EXPECT_EQ(1, tooLong.exitCode);
    EXPECT_TRUE(Contains(tooLong.err, "at most 6629")) << tooLong.err;
}

TEST(ExecCommand, MissingProgramFails)
{
    TqmRun r = RunTqm({"exec", "NoSuchProgram", "arg"});
    EXPECT_EQ(1, r.exitCode);
    EXPECT_TRUE(Contains(r.err, "cannot start NoSuchProgram")) << r.err;
}

}  // namespace
