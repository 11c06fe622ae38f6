// Buffered reading and writing of record files.
#include "datafiles/RecFileIo.h"

#include <string.h>

#include <algorithm>
#include <new>

namespace tqm {
namespace {

constexpr ULONGLONG kMaxOffset = 0xFFFFFFFFULL;

// Reads and writes name their offset, so the system's file pointer plays no
// part and nothing else that moves it can misplace our data.
OVERLAPPED at(ULONGLONG pos)
{
    OVERLAPPED ov = {};
    ov.Offset = static_cast<DWORD>(pos);
    ov.OffsetHigh = static_cast<DWORD>(pos >> 32);
    return ov;
}

}  // namespace

RecFileIo* RecFileIo::Attach(HANDLE hFile)
{
    std::unique_ptr<BYTE[]> buffer(new (std::nothrow) BYTE[kBufferSize]);
    RecFileIo* io = buffer ? new (std::nothrow) RecFileIo(hFile, std::move(buffer)) : nullptr;
    if (!io)
        ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return io;
}

RecFileIo::RecFileIo(HANDLE hFile, std::unique_ptr<BYTE[]> buffer) : m_hFile(hFile), m_buffer(std::move(buffer)) {}

bool RecFileIo::readAt(ULONGLONG pos, void* p, DWORD n, DWORD* pDone)
{
    *pDone = 0;
    OVERLAPPED ov = at(pos);
    DWORD dwLastError = ::GetLastError();
    if (::ReadFile(m_hFile, p, n, pDone, &ov))
        return true;
    if (::GetLastError() != ERROR_HANDLE_EOF)
        return false;
    // Reading at the end brings nothing and, as a read without an offset
    // would, leaves the thread's last-error code alone.
    ::SetLastError(dwLastError);
    *pDone = 0;
    return true;
}

bool RecFileIo::writeAt(ULONGLONG pos, const void* p, DWORD n)
{
    OVERLAPPED ov = at(pos);
    DWORD written = 0;
    if (!::WriteFile(m_hFile, p, n, &written, &ov))
        return false;
    if (written != n) {
        // A disk file takes all or fails; a short write still lost data.
        ::SetLastError(ERROR_WRITE_FAULT);
        return false;
    }
    return true;
}

bool RecFileIo::inWindow(DWORD pos) const
{
    return !m_pending && pos >= m_bufStart && ULONGLONG(pos) < ULONGLONG(m_bufStart) + m_bufLength;
}

bool RecFileIo::seek(DWORD pos)
{
    if (!flush())
        return false;
    m_pos = pos;
    return true;
}

bool RecFileIo::seekFromEnd(LONG distance)
{
    LARGE_INTEGER size;
    if (!flush() || !::GetFileSizeEx(m_hFile, &size))
        return false;
    LONGLONG target = size.QuadPart + distance;
    if (target < 0) {
        ::SetLastError(ERROR_NEGATIVE_SEEK);
        return false;
    }
    if (ULONGLONG(target) > kMaxOffset) {
        ::SetLastError(ERROR_SEEK);
        return false;
    }
    m_pos = static_cast<DWORD>(target);
    return true;
}

bool RecFileIo::read(void* p, DWORD n, DWORD* pDone)
{
    *pDone = 0;
    if (!flush())
        return false;
    auto* out = static_cast<BYTE*>(p);
    DWORD done = 0;
    bool ok = true;
    while (done < n) {
        if (inWindow(m_pos)) {
            DWORD offset = m_pos - m_bufStart;
            DWORD count = std::min(n - done, m_bufLength - offset);
            memcpy(out + done, m_buffer.get() + offset, count);
            done += count;
            m_pos += count;
            continue;
        }
        DWORD rest = n - done;
        DWORD got = 0;
        if (rest >= kBufferSize) {
            // Too much for the window: straight into the caller's memory.
            ok = readAt(m_pos, out + done, rest, &got);
            done += got;
            m_pos += got;
            break;
        }
        m_bufLength = 0;
        ok = readAt(m_pos, m_buffer.get(), kBufferSize, &got);
        if (!ok || got == 0)  // a failure, or the end of the file
            break;
        m_bufStart = m_pos;
        m_bufLength = got;
    }
    *pDone = done;
    return ok;
}

bool RecFileIo::write(const void* p, DWORD n)
{
    if (ULONGLONG(m_pos) + n > kMaxOffset) {
        // Offsets of a record file are 32 bits wide.
        ::SetLastError(ERROR_FILE_TOO_LARGE);
        return false;
    }
    if (m_pending && n > kBufferSize - m_bufLength && !flush())
        return false;
    if (!m_pending) {
        m_bufLength = 0;  // a read window would go stale
        if (n >= kBufferSize) {
            if (!writeAt(m_pos, p, n))
                return false;
            m_pos += n;
            return true;
        }
        m_bufStart = m_pos;
        m_pending = true;
    }
    memcpy(m_buffer.get() + m_bufLength, p, n);
    m_bufLength += n;
    m_pos += n;
    return true;
}

bool RecFileIo::flush()
{
    if (!m_pending)
        return true;
    DWORD length = m_bufLength;
    m_pending = false;
    m_bufLength = 0;
    return length == 0 || writeAt(m_bufStart, m_buffer.get(), length);
}

void RecFileIo::discard()
{
    m_pending = false;
    m_bufLength = 0;
}

BYTE* RecFileIo::pendingBytes(DWORD pos, DWORD n)
{
    if (!m_pending || pos < m_bufStart || ULONGLONG(pos) + n > ULONGLONG(m_bufStart) + m_bufLength)
        return nullptr;
    return m_buffer.get() + (pos - m_bufStart);
}

}  // namespace tqm
