// The suite's version code, the Windows family, and the versions of the
// calling program and of the project manager.
#include "paths/Versions.h"
#include "paths/logic/VersionCode.h"

#include "support/ChildProcess.h"
#include "support/FixtureFiles.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using tqmtest::FixturePath;
using tqmtest::ProgramDir;

TEST(VersionCode, Formula)
{
    struct { WORD major, minor, build, revision; int code; } cases[] = {
        {2, 0, 110, 7, 20110},
        {5, 10, 2, 0, 60002},    // minor 10 runs into the major digit
        {2, 0, 1000, 0, 21000},  // build 1000 runs into the minor digit
        {2, 0, 1, 65535, 20001},  // the fourth number is ignored
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.code, tqm::VersionCode(MAKELONG(c.minor, c.major), MAKELONG(c.revision, c.build)))
            << c.major << "." << c.minor << "." << c.build << "." << c.revision;
    }
}

TEST(WindowsFamily, Mapping)
{
    EXPECT_EQ(2, tqm::WindowsFamily(VER_PLATFORM_WIN32_WINDOWS, 0));   // 95
    EXPECT_EQ(3, tqm::WindowsFamily(VER_PLATFORM_WIN32_WINDOWS, 90));  // Me
    EXPECT_EQ(0, tqm::WindowsFamily(3, 0));  // Windows CE and anything newer: unknown
    EXPECT_EQ(4, TQMGetWindowsVersion());
}

// Runs a probe program and returns its three answers.
std::string probe(const std::string& name)
{
    const tqmtest::ProgramRun run = tqmtest::RunProgram(tqmtest::QuoteArgument(ProgramDir() + "\\" + name));
    EXPECT_EQ(0, run.exitCode) << name << ": " << run.err;
    std::string lines;
    for (char ch : run.out) {
        if (ch != '\r')
            lines += ch;
    }
    return lines;
}

TEST(AppVersion, OfTheCallingProgram)
{
    // FileVersion "5.10.2 probe", fixed version 5.10.2.0
    EXPECT_EQ("5.10.2 probe\n60002\n5.10.2 probe\n", probe("verprobe_versioned.exe"));
    EXPECT_EQ("\n-1\n\n", probe("verprobe_plain.exe"));
}

// Puts a file named Vmx52.exe beside the test program for as long as it lives.
class ProjectManagerStandIn
{
public:
    explicit ProjectManagerStandIn(const std::string& fixture) : m_path(ProgramDir() + "\\Vmx52.exe")
    {
        m_placed = CopyFileA(FixturePath(fixture).c_str(), m_path.c_str(), TRUE) != FALSE;
    }
    ~ProjectManagerStandIn()
    {
        if (m_placed)
            DeleteFileA(m_path.c_str());
    }
    bool placed() const { return m_placed; }

private:
    std::string m_path;
    bool m_placed;
};

TEST(VmxVersion, FoundBesideTheProgram)
{
    DeleteFileA((ProgramDir() + "\\Vmx52.exe").c_str());  // left over from a run that was stopped
    EXPECT_EQ(-1, TQMGetVMXVersion());
    {
        ProjectManagerStandIn vmx("Vmx52.exe");  // version 1.4.300.0
        ASSERT_TRUE(vmx.placed());
        EXPECT_EQ(14300, TQMGetVMXVersion());
    }
    {
        ProjectManagerStandIn vmx("verfix_none.dll");  // no version resource
        ASSERT_TRUE(vmx.placed());
        EXPECT_EQ(-1, TQMGetVMXVersion());
    }
}

}  // namespace
