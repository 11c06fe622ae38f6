// The roles this program plays in its child processes.
#include "stress/Stress.h"

namespace tqmstress {

int SenderRole(const std::vector<std::string>& args);
int IniWriterRole(const std::vector<std::string>& args);
int IniReaderRole(const std::vector<std::string>& args);
int RecWriterRole(const std::vector<std::string>& args);

extern const RoleEntry kRoles[] = {
    {"sender", SenderRole},
    {"ini-writer", IniWriterRole},
    {"ini-reader", IniReaderRole},
    {"rec-writer", RecWriterRole},
};
extern const size_t kRoleCount = sizeof(kRoles) / sizeof(kRoles[0]);

}  // namespace tqmstress
