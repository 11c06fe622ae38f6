// CStdioFile: text-mode translation on reading and writing, line pieces,
// and failures reported with the system's code.
#include "framework/StdioFile.h"

#include "support/FileUtil.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <string.h>

#include <algorithm>

#include <string>
#include <vector>

namespace {

using tqmtest::ReadBytes;
using tqmtest::TempDir;
using tqmtest::WriteBytes;

// Every piece ReadString(buffer, nMax) hands back, NULs inside included.
std::vector<std::string> readPieces(const std::string& path, UINT nMax, UINT flags = CStdioFile::typeText)
{
    std::vector<std::string> pieces;
    CStdioFile file;
    if (!file.Open(path.c_str(), CStdioFile::modeRead | flags))
        return pieces;
    // One sentinel byte beyond nMax shows a write past the limit; the last
    // NUL within the limit is the terminator, so NULs inside a line survive.
    std::vector<char> buffer(nMax + 1);
    for (;;) {
        std::fill(buffer.begin(), buffer.end(), '#');
        char* p = file.ReadString(buffer.data(), nMax);
        if (!p)
            break;
        EXPECT_EQ('#', buffer[nMax]) << "wrote past nMax";
        size_t n = nMax - 1;
        while (n > 0 && buffer[n] != '\0')
            --n;
        pieces.emplace_back(p, n);
    }
    file.Close();
    return pieces;
}

std::vector<std::string> readLines(const std::string& path)
{
    std::vector<std::string> lines;
    CStdioFile file;
    if (!file.Open(path.c_str(), CStdioFile::modeRead | CStdioFile::typeText))
        return lines;
    CString line;
    while (file.ReadString(line))
        lines.emplace_back(line.GetString(), static_cast<size_t>(line.GetLength()));
    return lines;
}

TEST(CStdioFile, TextModeTranslatesLineEndsOnReading)
{
    TempDir dir;
    struct { const char* name; std::string bytes; std::vector<std::string> pieces; } const cases[] = {
        {"crlf", "a\r\nb\r\n", {"a\n", "b\n"}},
        {"lf only", "a\nb\n", {"a\n", "b\n"}},
        {"lone cr kept", "a\rb\r\r\n", {"a\rb\r\n"}},
        {"no final line feed", "a\r\nlast", {"a\n", "last"}},
        {"ctrl-z ends the file", "a\r\nb\x1A" "c\r\n", {"a\n", "b"}},
        {"ctrl-z first", "\x1A" "a\r\n", {}},
        {"nul inside a line", std::string("k=v\0w\r\nx\r\n", 10), {std::string("k=v\0w\n", 6), "x\n"}},
    };
    for (const auto& c : cases) {
        std::string path = dir.file("t.txt");
        ASSERT_TRUE(WriteBytes(path, c.bytes));
        EXPECT_EQ(c.pieces, readPieces(path, 100)) << c.name;
    }
}

TEST(CStdioFile, LongLinesArriveInPieces)
{
    TempDir dir;
    std::string path = dir.file("long.txt");
    ASSERT_TRUE(WriteBytes(path, std::string(10, 'x') + "\r\n" + "abc\r\n"));
    // nMax 5 takes 4 characters at a time; the line end stays with its piece.
    EXPECT_EQ((std::vector<std::string>{"xxxx", "xxxx", "xx\n", "abc\n"}), readPieces(path, 5));
    // Exactly nMax - 1 characters before CR LF: the line end arrives alone.
    ASSERT_TRUE(WriteBytes(path, "abcd\r\nz"));
    EXPECT_EQ((std::vector<std::string>{"abcd", "\n", "z"}), readPieces(path, 5));
    // CR LF right at the limit still counts as one line end.
    ASSERT_TRUE(WriteBytes(path, "abc\r\nz"));
    EXPECT_EQ((std::vector<std::string>{"abc\n", "z"}), readPieces(path, 5));
    // Into a CString, a line of any length arrives whole.
    std::string longLine(5000, 'L');
    ASSERT_TRUE(WriteBytes(path, longLine + "\r\n\r\nshort"));
    EXPECT_EQ((std::vector<std::string>{longLine, "", "short"}), readLines(path));
}

TEST(CStdioFile, CrLfSplitAcrossTheReadBufferIsOneLineEnd)
{
    TempDir dir;
    std::string path = dir.file("edge.txt");
    // Place a CR LF pair on every offset around the reader's 64 KB block edge.
    for (size_t lead = 65530; lead <= 65540; ++lead) {
        std::string bytes(lead, 'a');
        bytes += "\r\nend";
        ASSERT_TRUE(WriteBytes(path, bytes));
        std::vector<std::string> lines = readLines(path);
        ASSERT_EQ(2u, lines.size()) << "at " << lead;
        EXPECT_EQ(lead, lines[0].size());
        EXPECT_EQ("end", lines[1]);
    }
}

TEST(CStdioFile, TextModeWritesLfAsCrLf)
{
    TempDir dir;
    std::string path = dir.file("out.txt");
    CStdioFile file;
    ASSERT_TRUE(file.Open(path.c_str(), CStdioFile::modeCreate | CStdioFile::modeWrite | CStdioFile::typeText));
    file.WriteString("[S]\nk=v\n\n");
    file.WriteString("tail\rx");
    // A large write goes out whole, through several buffer flushes.
    std::string big;
    for (int i = 0; i < 20000; ++i)
        big += "line of text\n";
    file.WriteString(big.c_str());
    file.Close();
    const std::string head = "[S]\r\nk=v\r\n\r\ntail\rx";
    EXPECT_EQ(head, ReadBytes(path).substr(0, head.size()));
    EXPECT_EQ(head.size() + big.size() + 20000, ReadBytes(path).size());
}

TEST(CStdioFile, DestructionWritesWhatIsBuffered)
{
    TempDir dir;
    std::string path = dir.file("unclosed.txt");
    {
        CStdioFile file;
        ASSERT_TRUE(file.Open(path.c_str(), CStdioFile::modeCreate | CStdioFile::modeWrite));
        file.WriteString("kept\n");
    }
    EXPECT_EQ("kept\r\n", ReadBytes(path));
}

TEST(CStdioFile, OpenFailureFillsTheException)
{
    TempDir dir;
    CStdioFile file;
    CFileException error;
    std::string missing = dir.file("missing.txt");
    EXPECT_FALSE(file.Open(missing.c_str(), CStdioFile::modeRead, &error));
    EXPECT_EQ(CFileException::fileNotFound, error.m_cause);
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, error.m_lOsError);
    EXPECT_STREQ(missing.c_str(), error.m_strFileName);
    EXPECT_FALSE(file.Open(nullptr, CStdioFile::modeRead));
}

TEST(CStdioFile, ReadingAWriteOnlyFileThrowsFileException)
{
    TempDir dir;
    std::string path = dir.file("w.txt");
    CStdioFile file;
    ASSERT_TRUE(file.Open(path.c_str(), CStdioFile::modeCreate | CStdioFile::modeWrite));
    char buffer[16];
    try {
        file.ReadString(buffer, sizeof(buffer));
        ADD_FAILURE() << "no exception";
    } catch (CFileException* e) {
        EXPECT_EQ(CFileException::accessDenied, e->m_cause);
        EXPECT_STREQ(path.c_str(), e->m_strFileName);
        e->Delete();
    }
    file.Abort();
}

}  // namespace
