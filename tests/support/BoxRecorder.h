// BoxRecorder - captures the library's message boxes in a test.
//
// While a recorder lives, every box the library would show is recorded and
// answered with the recorder's answer (or, with answer 0, the answer a
// program without a user gives: OK, Ignore, No or Cancel). Outside any
// recorder the test programs' default hook does the same and prints the box,
// so a test never waits on a window.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tqmtest {

struct RecordedBox
{
    HWND owner;
    std::string text;
    std::string caption;
    UINT type;
};

class BoxRecorder
{
public:
    explicit BoxRecorder(int answer = 0);
    ~BoxRecorder();
    BoxRecorder(const BoxRecorder&) = delete;
    BoxRecorder& operator=(const BoxRecorder&) = delete;

    const std::vector<RecordedBox>& boxes() const { return m_boxes; }
    size_t count() const { return m_boxes.size(); }
    const RecordedBox& last() const { return m_boxes.back(); }
    void clear() { m_boxes.clear(); }
    // True if one of the boxes is an assertion report of expr from source.
    bool reported(const std::string& expr, const std::string& source) const;

private:
    static int CALLBACK onBox(HWND owner, const char* text, const char* caption, UINT type, void* context);

    int m_answer;
    std::vector<RecordedBox> m_boxes;
};

// Installs the default hook of the test programs (TestMain does this).
void InstallDefaultBoxHook();

}  // namespace tqmtest
