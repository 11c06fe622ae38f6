// ExpectInvalidArg - checks that a call throws the framework's
// CInvalidArgException* (and deletes it).
#pragma once

#include "framework/Exceptions.h"

#include <gtest/gtest.h>

#include <functional>

namespace tqmtest {

inline void ExpectInvalidArg(const std::function<void()>& call, const char* what)
{
    try {
        call();
        ADD_FAILURE() << "no CInvalidArgException: " << what;
    } catch (CInvalidArgException* e) {
        e->Delete();
    }
}

}  // namespace tqmtest
