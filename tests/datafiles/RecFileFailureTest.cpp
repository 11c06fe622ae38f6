// CRecFile failures: calls in the wrong state, damaged and truncated files,
// the file exception, Verify.
#include "RecFileSamples.h"

#include "support/BoxRecorder.h"
#include "support/FileUtil.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <thread>
#include <vector>

using rectest::kAny;
using rectest::Probe;
using rectest::Record;

namespace {

class RecFileFailureTest : public rectest::RecFileFixture
{
protected:
    std::vector<Record> records() const { return {{5, 1, "alpha"}, {6, 2, ""}, {7, 3, std::string(300, 'z')}}; }

    std::string validFile(DWORD type = 2) const
    {
        return rectest::RawFile(type, std::to_string(type) + "\n1\n01/02/2020 03:04:05\nSample\n", records());
    }
};

// Runs f, which must throw CFileException*; returns cause, code and file name.
struct Thrown { bool thrown = false; int cause = -1; LONG osError = 0; std::string fileName; };

Thrown catchFileException(const std::function<void()>& f)
{
    Thrown t;
    try {
        f();
    } catch (CFileException* e) {
        t.thrown = true;
        t.cause = e->m_cause;
        t.osError = e->m_lOsError;
        t.fileName = e->m_strFileName.GetString();
        e->Delete();
    }
    return t;
}

// ---- calls in the wrong mode or state ------------------------------------

enum Setup { kClosed, kReadAtBoundary, kReadHeader, kReadPartly, kReadComplete, kWriteAtBoundary, kWriteHeader };

struct Misuse { Setup setup; const char* call; std::function<BOOL(Probe&, const std::string&)> run; };

// A call on the object f (p: the path of another file), named by its own text.
#define MISUSE(setup, call) {setup, #call, [&](Probe& f, const std::string& p) { (void)p; return BOOL(call); }}

TEST_F(RecFileFailureTest, EveryCallInTheWrongStateFailsWithInvalidFunctionAndClosesTheFile)
{
    ASSERT_TRUE(tqmtest::WriteBytes(path("sample.rec"), validFile()));
    char buf[400];
    const std::string tooLong(1025, 'x');
    const DWORD kNone = 0xFFFFFFFF;
    const Misuse cases[] = {
        MISUSE(kClosed, f.FindNextRec(kAny)),
        MISUSE(kClosed, f.Create(p.c_str(), 1, 1, nullptr)),
        MISUSE(kClosed, f.Create(p.c_str(), 1, 1, tooLong.c_str())),

        MISUSE(kReadAtBoundary, f.ReadRecData(buf, 1)),
        MISUSE(kReadAtBoundary, f.SeekToRecord(0xFFFFFFFF)),
        MISUSE(kReadAtBoundary, f.Open(p.c_str(), kAny, FALSE)),

        MISUSE(kReadHeader, f.ReadRec(buf, 4)),  // one byte short
        MISUSE(kReadHeader, f.ReadRec(buf, 6)),  // one byte over
        MISUSE(kReadHeader, f.ReadRecData(nullptr, 1)),

        MISUSE(kReadPartly, f.ReadRecData(buf, 4)),
        MISUSE(kReadComplete, f.ReadRecData(buf, 1)),

        MISUSE(kWriteAtBoundary, f.FindNextRec(kAny)),
        MISUSE(kWriteAtBoundary, f.Create(p.c_str(), 1, 1, "x")),

        MISUSE(kWriteHeader, f.WriteRecBegin(1, 1)),
        MISUSE(kWriteHeader, f.GetRecFilePointer() != kNone),
        MISUSE(kWriteHeader, f.WriteRecData(nullptr, 3)),
    };

    for (const Misuse& c : cases) {
        SCOPED_TRACE(std::string(c.call) + " in setup " + std::to_string(c.setup));
        std::string file = path("sample.rec");
        Probe rec(FALSE);
        switch (c.setup) {
        case kClosed:
            break;
        case kWriteAtBoundary:
        case kWriteHeader:
            ASSERT_TRUE(rec.Create(path("new.rec").c_str(), 2, 1, "New"));
            if (c.setup == kWriteHeader) {
                ASSERT_TRUE(rec.WriteRecBegin(1, 2));
            }
            break;
        default:
            ASSERT_TRUE(rec.Open(file.c_str(), kAny, FALSE));
            if (c.setup >= kReadHeader) {
                ASSERT_TRUE(rec.FindNextRec(5));
            }
            if (c.setup == kReadPartly) {
                ASSERT_TRUE(rec.ReadRecData(buf, 2));
            }
            if (c.setup == kReadComplete) {
                ASSERT_TRUE(rec.ReadRecData(buf, 5));
            }
            break;
        }
        int mode = rec.mode();
        SetLastError(0xdeadbeef);
        EXPECT_FALSE(c.run(rec, path("other.rec")));
        EXPECT_EQ(ERROR_INVALID_FUNCTION, GetLastError());
        EXPECT_FALSE(rec.hasFile());
        EXPECT_EQ(0, rec.state());
        EXPECT_EQ(nullptr, rec.GetRecHdr());
        EXPECT_EQ(mode, rec.mode()) << "the mode stays until Close";
        EXPECT_FALSE(tqmtest::PathExists(path("other.rec")));
        if (mode != 0) {
            // Closed but not cleared: nothing new until Close.
            EXPECT_FALSE(rec.Open(file.c_str(), kAny, FALSE));
            EXPECT_EQ(ERROR_INVALID_FUNCTION, GetLastError());
        }
        SetLastError(0xdeadbeef);
        EXPECT_FALSE(rec.Close());
        EXPECT_EQ(0xdeadbeef, GetLastError()) << "closing a closed object is no failure to report";
        EXPECT_EQ(0, rec.mode());
        EXPECT_TRUE(rec.Open(file.c_str(), kAny, FALSE));
        EXPECT_TRUE(rec.Close());
    }
}

TEST_F(RecFileFailureTest, AttributesWithoutAFileFailLikeEveryOtherCall)
{
    DWORD value = 0;
    SYSTEMTIME time = {};
    CString text = "old";
    const std::function<BOOL(CRecFile&)> calls[] = {
        [&](CRecFile& f) { return f.GetFileType(value); },
        [&](CRecFile& f) { return f.GetVersion(value); },
        [&](CRecFile& f) { return f.GetCreationTime(&time); },
        [&](CRecFile& f) { return f.GetCreationTime(text); },
    };
    for (size_t i = 0; i < sizeof(calls) / sizeof(calls[0]); ++i) {
        SCOPED_TRACE(i);
        CRecFile quiet(FALSE);
        value = 0;
        SetLastError(0);
        EXPECT_FALSE(calls[i](quiet));
        EXPECT_EQ(ERROR_INVALID_FUNCTION, GetLastError());
        if (i < 2) {
            EXPECT_EQ(0xFFFFFFFFu, value);
        }
        CRecFile thrower;
        Thrown t = catchFileException([&] { calls[i](thrower); });
        EXPECT_TRUE(t.thrown);
        EXPECT_EQ(ERROR_INVALID_FUNCTION, t.osError);
    }
    EXPECT_EQ("", std::string(text.GetString()));
}

TEST_F(RecFileFailureTest, RewindHasNoModeRule)
{
    // While writing it moves back to the descriptor, which the next record
    // then overwrites, as the caller asked.
    Probe rec(FALSE);
    ASSERT_TRUE(rec.Create(path().c_str(), 2, 1, "Rewound"));
    ASSERT_TRUE(rec.Rewind());
    EXPECT_EQ(rec.firstRecPos(), rec.GetRecFilePointer());
    ASSERT_TRUE(rec.Close());

    // Without a file the system refuses the move, with its own code.
    CRecFile closed(FALSE);
    SetLastError(0);
    EXPECT_FALSE(closed.Rewind());
    EXPECT_EQ(ERROR_INVALID_HANDLE, GetLastError());
}

// A derived class that steers the object through its members.
class Steering : public Probe
{
public:
    using Probe::Probe;
    void setState(int nState) { m_nRecState = nState; }
    void setNextRecPos(DWORD dwPos) { m_dwNextRecPos = dwPos; }
    DWORD dataDone() const { return m_dwDataDone; }
    DWORD recStartPos() const { return m_dwRecStartPos; }
};

TEST_F(RecFileFailureTest, MembersAreTheLiveState)
{
    Steering rec(FALSE);
    ASSERT_TRUE(rec.Create(path().c_str(), 2, 1, "Members"));
    DWORD start = rec.GetRecFilePointer();
    ASSERT_TRUE(rec.WriteRecBegin(1, 1));
    EXPECT_EQ(start, rec.recStartPos());
    ASSERT_TRUE(rec.WriteRecData("abc", 3));
    EXPECT_EQ(3u, rec.dataDone());
    ASSERT_TRUE(rec.WriteRecEnd());
    ASSERT_TRUE(rec.WriteRec(2, 2, 2, "de"));
    DWORD third = rec.GetRecFilePointer();
    ASSERT_TRUE(rec.WriteRec(3, 3, 1, "f"));
    // A state set from outside is the state the next call sees.
    rec.setState(0);
    EXPECT_FALSE(rec.WriteRec(4, 4, 1, "g"));
    EXPECT_EQ(ERROR_INVALID_FUNCTION, GetLastError());
    rec.Close();

    ASSERT_TRUE(rec.Open(path().c_str(), kAny, FALSE));
    ASSERT_TRUE(rec.FindNextRec(1));
    // Skipping the second record by moving the next record's offset.
    rec.setNextRecPos(third);
    ASSERT_TRUE(rec.FindNextRec(kAny));
    EXPECT_EQ(3u, rec.GetRecType());
    rec.Close();
}

// ---- damaged files ------------------------------------------------------

TEST_F(RecFileFailureTest, EveryTruncationIsRefusedOrEndsEarly)
{
    std::string good = validFile();
    // Offsets where records end: the descriptor's, then each record's.
    std::vector<size_t> ends;
    size_t pos = 4;
    while (pos < good.size()) {
        pos += 20 + tqm::LoadLittleEndian32(reinterpret_cast<const uint8_t*>(good.data()) + pos + 12);
        ends.push_back(pos);
    }
    ASSERT_EQ(good.size(), ends.back());

    for (size_t length = 0; length < good.size(); ++length) {
        ASSERT_TRUE(tqmtest::WriteBytes(path(), good.substr(0, length)));
        DWORD error = 0;
        std::vector<Record> read = rectest::ReadAll(path(), &error);
        SCOPED_TRACE("cut at " + std::to_string(length));
        if (length < ends[0]) {
            EXPECT_EQ(ERROR_BAD_FORMAT, error);
            EXPECT_TRUE(read.empty());
            continue;
        }
        // Whole records that remain are read; a cut inside a header is the
        // end of the file, a cut inside the data a record running past it.
        size_t complete = 0;
        while (ends[complete] <= length)
            ++complete;
        size_t cut = length - ends[complete - 1];
        EXPECT_EQ(cut >= 20 ? ERROR_SEEK : 0u, error);
        EXPECT_EQ(complete, read.size());
        EXPECT_LT(read.size(), ends.size());
    }
}

TEST_F(RecFileFailureTest, EveryCorruptedByteIsFoundExceptInTypeAndParameter)
{
    for (DWORD type : {DWORD(1), DWORD(2)}) {
        std::string good = validFile(type);
        std::vector<size_t> starts;  // of each record header
        for (size_t pos = 4; pos < good.size();
             pos += 20 + tqm::LoadLittleEndian32(reinterpret_cast<const uint8_t*>(good.data()) + pos + 12))
            starts.push_back(pos);

        for (size_t offset = 0; offset < good.size(); ++offset) {
            std::string bytes = good;
            bytes[offset] = static_cast<char>(bytes[offset] ^ 0xFF);
            ASSERT_TRUE(tqmtest::WriteBytes(path(), bytes));
            DWORD error = 0;
            std::vector<Record> read = rectest::ReadAll(path(), &error);

            size_t record = 0;
            while (record + 1 < starts.size() && starts[record + 1] <= offset)
                ++record;
            size_t inRecord = offset - starts[record];
            DWORD expected;
            if (offset < 4)
                expected = ERROR_BAD_FORMAT;
            else if (inRecord >= 4 && inRecord < 12)
                expected = 0;  // type and parameter carry no check
            else if (record == 0 && inRecord >= 12)
                expected = ERROR_BAD_FORMAT;  // the descriptor is checked by Open
            else if (inRecord < 4)
                expected = ERROR_SEEK;
            else if (inRecord >= 12 && inRecord < 16)
                expected = error == ERROR_SEEK ? ERROR_SEEK : ERROR_CRC;  // a length: too long or wrong sum
            else
                expected = ERROR_CRC;
            EXPECT_EQ(expected, error) << "type " << type << ", byte " << offset;
        }
    }
    // A length that carries the end of the record past 32 bits.
    std::string wrapped = validFile();
    wrapped.replace(wrapped.find("****", 24) + 12, 4, "\xF0\xFF\xFF\xFF");
    ASSERT_TRUE(tqmtest::WriteBytes(path(), wrapped));
    DWORD error = 0;
    rectest::ReadAll(path(), &error);
    EXPECT_EQ(ERROR_SEEK, error);
}

TEST_F(RecFileFailureTest, EndOfFileReportsOnlyAPendingLastError)
{
    ASSERT_TRUE(tqmtest::WriteBytes(path(), validFile()));
    const DWORD lastRecord = static_cast<DWORD>(validFile().rfind("****"));

    // After the end there is no position; the next search starts at offset
    // 0, which holds the file magic rather than a record.
    Probe rec(FALSE);
    ASSERT_TRUE(rec.Open(path().c_str(), kAny, FALSE));
    ASSERT_TRUE(rec.SeekToRecord(lastRecord));
    SetLastError(0);
    EXPECT_FALSE(rec.FindNextRec(kAny));
    EXPECT_EQ(0u, GetLastError());
    EXPECT_TRUE(rec.hasFile());
    EXPECT_EQ(0, rec.state());
    EXPECT_FALSE(rec.FindNextRec(kAny));
    EXPECT_EQ(ERROR_SEEK, GetLastError());
    EXPECT_FALSE(rec.hasFile());
    rec.Close();

    // A last-error code still set when the end comes makes it a failure.
    for (DWORD pending : {DWORD(0), DWORD(ERROR_LOCK_VIOLATION)}) {
        CRecFile thrower;
        ASSERT_TRUE(thrower.Open(path().c_str(), kAny));
        ASSERT_TRUE(thrower.SeekToRecord(lastRecord));
        BOOL found = -1;
        Thrown t = catchFileException([&] {
            SetLastError(pending);
            found = thrower.FindNextRec(kAny);
        });
        EXPECT_NE(TRUE, found);
        EXPECT_EQ(pending != 0, t.thrown) << pending;
        if (t.thrown) {
            EXPECT_EQ(CFileException::lockViolation, t.cause);
            EXPECT_EQ(LONG(ERROR_LOCK_VIOLATION), t.osError);
        }
    }
}

TEST_F(RecFileFailureTest, ThrowsFileExceptionsWithCauseCodeAndPath)
{
    std::string crcBad = validFile();
    crcBad[crcBad.size() - 1] = 'y';
    std::string magicBad = validFile();
    magicBad[magicBad.find("****", 24)] = '#';
    struct Case { const char* name; std::string bytes; int cause; LONG code; } cases[] = {
        {"missing.rec", "", CFileException::fileNotFound, ERROR_FILE_NOT_FOUND},
        {"junk.rec", "not a record file at all", CFileException::invalidFile, ERROR_BAD_FORMAT},
        {"crc.rec", crcBad, CFileException::hardIO, ERROR_CRC},
        {"magic.rec", magicBad, CFileException::badSeek, ERROR_SEEK},
        {"misuse.rec", validFile(), CFileException::genericException, ERROR_INVALID_FUNCTION},
    };
    for (const Case& c : cases) {
        const std::string file = path(c.name);
        if (!c.bytes.empty()) {
            ASSERT_TRUE(tqmtest::WriteBytes(file, c.bytes));
        }
        CRecFile rec;
        Thrown t = catchFileException([&] {
            char data[300];
            rec.Open(file.c_str(), kAny);
            if (c.code == ERROR_INVALID_FUNCTION)
                rec.ReadRecEnd();
            while (rec.FindNextRec(kAny))
                rec.ReadRec(data, rec.GetRecHdr()->dwDataLength);
        });
        ASSERT_TRUE(t.thrown) << c.name;
        EXPECT_EQ(c.cause, t.cause) << c.name;
        EXPECT_EQ(c.code, t.osError) << c.name;
        EXPECT_EQ(file, t.fileName) << c.name;
        EXPECT_EQ(static_cast<DWORD>(c.code), GetLastError()) << c.name;
        EXPECT_EQ(nullptr, TqmTakeDeferredException()) << "nothing is left parked";
        EXPECT_FALSE(rec.Close()) << "the failure closed the file";
    }

    // The file is not shared: a second object cannot open it.
    ASSERT_TRUE(tqmtest::WriteBytes(path("shared.rec"), validFile()));
    CRecFile first;
    ASSERT_TRUE(first.Open(path("shared.rec").c_str(), kAny));
    CRecFile second;
    Thrown t = catchFileException([&] { second.Open(path("shared.rec").c_str(), kAny); });
    EXPECT_EQ(CFileException::sharingViolation, t.cause);
    first.Close();
}

TEST_F(RecFileFailureTest, LastErrorHoldsOnAFreshThread)
{
    // The first call on a thread sets up the thread's slot for exceptions;
    // the failure's code must survive that.
    ASSERT_TRUE(tqmtest::WriteBytes(path(), "plain text"));
    DWORD error = 0;
    std::thread([&] {
        CRecFile rec(FALSE);
        rec.Open(path().c_str(), kAny, FALSE);
        error = GetLastError();
    }).join();
    EXPECT_EQ(ERROR_BAD_FORMAT, error);
}

TEST_F(RecFileFailureTest, FailedCreateLeavesNothingAndNeedsNoClose)
{
    // A file somebody else has open stays as it is.
    std::string busy = path("busy.rec");
    ASSERT_TRUE(tqmtest::WriteBytes(busy, "keep"));
    HANDLE hOther = CreateFileA(busy.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, hOther);
    Probe rec(FALSE);
    EXPECT_FALSE(rec.Create(busy.c_str(), 1, 1, "x"));
    EXPECT_EQ(ERROR_SHARING_VIOLATION, GetLastError());
    EXPECT_EQ(0, rec.mode());
    CloseHandle(hOther);
    EXPECT_EQ("keep", tqmtest::ReadBytes(busy));
    EXPECT_TRUE(rec.Create(path().c_str(), 1, 1, "x"));
    EXPECT_TRUE(rec.Close());
}

TEST_F(RecFileFailureTest, HeaderChangedUnderTheWriter)
{
    // WriteRecEnd reads the header back from the file, for a record of any size.
    for (size_t size : {size_t(3), size_t(300000)}) {
        Probe rec(FALSE);
        ASSERT_TRUE(rec.Create(path().c_str(), 2, 1, "Changed"));
        DWORD start = rec.GetRecFilePointer();
        ASSERT_TRUE(rec.WriteRecBegin(3, 4));
        std::string data(size, 'b');
        ASSERT_TRUE(rec.WriteRecData(data.data(), static_cast<DWORD>(data.size())));
        ASSERT_TRUE(rec.poke(start + 4, std::string("\x09\0\0\0", 4)));
        EXPECT_FALSE(rec.WriteRecEnd()) << size;
        EXPECT_EQ(ERROR_SEEK, GetLastError()) << size;
        EXPECT_FALSE(rec.hasFile());
        rec.Close();
    }
}

// ---- Verify -------------------------------------------------------------

TEST_F(RecFileFailureTest, VerifyShowsTheFirstFailureAndAlwaysSucceeds)
{
    ASSERT_TRUE(tqmtest::WriteBytes(path("good.rec"), validFile()));
    std::string bad = validFile();
    bad[bad.size() - 1] ^= 1;
    ASSERT_TRUE(tqmtest::WriteBytes(path("bad.rec"), bad));

    Probe rec(FALSE);
    {
        tqmtest::BoxRecorder boxes;
        EXPECT_TRUE(rec.Verify(path("good.rec").c_str(), 2));
        EXPECT_EQ(0u, boxes.count());
    }
    EXPECT_FALSE(rec.throws()) << "the throw flag is restored";

    struct Case { std::string file; DWORD type; std::string text; } cases[] = {
        {path("bad.rec"), kAny, "A hardware I/O error was reported while accessing " + path("bad.rec") + "."},
        {path("good.rec"), 5, path("good.rec") + " is not a valid file."},
        {path("missing.rec"), kAny, path("missing.rec") + " was not found."},
    };
    for (const Case& c : cases) {
        CRecFile thrower;  // throws by default, yet Verify does not
        tqmtest::BoxRecorder boxes;
        EXPECT_TRUE(thrower.Verify(c.file.c_str(), c.type));
        ASSERT_EQ(1u, boxes.count()) << c.file;
        EXPECT_EQ("Verify Failed", boxes.last().caption);
        EXPECT_EQ(c.text, boxes.last().text);
        EXPECT_EQ(UINT(MB_ICONERROR), boxes.last().type & MB_ICONMASK);
        EXPECT_EQ(nullptr, TqmTakeDeferredException());
        EXPECT_TRUE(thrower.Open(path("good.rec").c_str(), kAny)) << "Verify leaves the object closed";
        thrower.Close();
    }
}

}  // namespace
