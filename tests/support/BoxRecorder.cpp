#include "support/BoxRecorder.h"

#include "diag/MessageBoxHook.h"

#include <stdio.h>

namespace tqmtest {

namespace {
int CALLBACK defaultHook(HWND, const char* text, const char* caption, UINT type, void*)
{
    fprintf(stderr, "[message box answered by the test harness] %s: %s\n", caption, text);
    return TqmNonInteractiveAnswer(type);
}
}  // namespace

void InstallDefaultBoxHook() { TQMSetMessageBoxHook(defaultHook, nullptr); }

BoxRecorder::BoxRecorder(int answer) : m_answer(answer) { TQMSetMessageBoxHook(onBox, this); }

BoxRecorder::~BoxRecorder() { InstallDefaultBoxHook(); }

int CALLBACK BoxRecorder::onBox(HWND owner, const char* text, const char* caption, UINT type, void* context)
{
    auto* self = static_cast<BoxRecorder*>(context);
    self->m_boxes.push_back({owner, text, caption, type});
    return self->m_answer ? self->m_answer : TqmNonInteractiveAnswer(type);
}

bool BoxRecorder::reported(const std::string& expr, const std::string& source) const
{
    for (const RecordedBox& box : m_boxes) {
        if (box.text.find(expr) != std::string::npos && box.text.find(source) != std::string::npos)
            return true;
    }
    return false;
}

}  // namespace tqmtest
