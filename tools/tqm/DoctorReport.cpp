// The doctor's findings as text for a person and as JSON for scripts.
#include "tools/tqm/Doctor.h"

#include <nlohmann/json.hpp>

#include <windows.h>

#include <stdio.h>
#include <string.h>

namespace tqmtool {
namespace doctor {
namespace {

struct GroupNames
{
    Group group;
    const char* name;
    const char* title;
};

const GroupNames kGroupNames[] = {
    {Group::Directories, "directories", "Directories"},
    {Group::Settings, "settings", "Settings"},
    {Group::Libraries, "libraries", "Installed libraries"},
    {Group::Projects, "projects", "Projects"},
    {Group::Conversion, "conversion", "Old libraries waiting for conversion"},
};

const GroupNames& namesOf(Group group)
{
    for (const GroupNames& names : kGroupNames) {
        if (names.group == group)
            return names;
    }
    return kGroupNames[0];
}

std::string counted(size_t count, const char* singular, const char* plural)
{
    return std::to_string(count) + " " + (count == 1 ? singular : plural);
}

bool checked(Group group, const Group* only) { return !only || *only == group; }

// The library's texts are in the system code page; JSON is UTF-8.
std::string utf8(const std::string& text)
{
    if (text.empty())
        return text;
    const int wide = MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
    std::wstring buffer(static_cast<size_t>(wide), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), &buffer[0], wide);
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, buffer.data(), wide, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, buffer.data(), wide, &result[0], bytes, nullptr, nullptr);
    return result;
}

}  // namespace

const char* SeverityName(Severity severity)
{
    switch (severity) {
    case Severity::Error:
        return "error";
    case Severity::Warning:
        return "warning";
    case Severity::Note:
        break;
    }
    return "note";
}

const char* GroupName(Group group) { return namesOf(group).name; }

const char* GroupTitle(Group group) { return namesOf(group).title; }

bool ParseGroup(const std::string& name, Group& group)
{
    for (const GroupNames& names : kGroupNames) {
        if (!_stricmp(name.c_str(), names.name)) {
            group = names.group;
            return true;
        }
    }
    return false;
}

Tally CountFindings(const Findings& findings)
{
    Tally tally;
    for (const Finding& finding : findings) {
        switch (finding.severity) {
        case Severity::Error:
            ++tally.errors;
            break;
        case Severity::Warning:
            ++tally.warnings;
            break;
        case Severity::Note:
            ++tally.notes;
            break;
        }
    }
    return tally;
}

std::string FormatTally(const Tally& tally)
{
    return counted(tally.errors, "error", "errors") + ", " + counted(tally.warnings, "warning", "warnings") + ", " +
           counted(tally.notes, "note", "notes");
}

std::string FormatReport(const Findings& findings, const Group* only)
{
    if (findings.empty())
        return only ? std::string("No findings among the ") + GroupName(*only) + ".\n"
                    : "No findings: the installation is in order.\n";
    std::string text;
    for (Group group : kAllGroups) {
        if (!checked(group, only))
            continue;
        text += std::string(GroupTitle(group)) + "\n";
        bool any = false;
        for (const Finding& finding : findings) {
            if (finding.group != group)
                continue;
            char severity[16];
            snprintf(severity, sizeof(severity), "%-9s", SeverityName(finding.severity));
            text += "  " + std::string(severity) + finding.subject + ": " + finding.reason + "\n";
            any = true;
        }
        if (!any)
            text += "  (nothing found)\n";
    }
    return text + FormatTally(CountFindings(findings)) + "\n";
}

std::string FormatJson(const Findings& findings, const Group* only)
{
    nlohmann::ordered_json groups = nlohmann::ordered_json::array();
    for (Group group : kAllGroups) {
        if (checked(group, only))
            groups.push_back(GroupName(group));
    }
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const Finding& finding : findings) {
        nlohmann::ordered_json item = {
            {"severity", SeverityName(finding.severity)},
            {"group", GroupName(finding.group)},
            {"subject", utf8(finding.subject)},
            {"reason", utf8(finding.reason)},
            {"message", nullptr},
        };
        if (!finding.message.empty())
            item["message"] = utf8(finding.message);
        list.push_back(std::move(item));
    }
    const Tally tally = CountFindings(findings);
    const nlohmann::ordered_json document = {
        {"groups", groups},
        {"findings", list},
        {"summary", {{"errors", tally.errors}, {"warnings", tally.warnings}, {"notes", tally.notes}}},
    };
    return document.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

}  // namespace doctor
}  // namespace tqmtool
