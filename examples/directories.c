/* directories - the suite's folders, a path tag and a CRC, through the plain
   functions of Tqmlib52.h. Prints what it finds; exit code 0 when every call
   gave a sensible answer. */
#include <stdio.h>
#include <string.h>

#include <Tqmlib52.h>

/* Answers the library's boxes: nobody is there to see them. */
static int CALLBACK AnswerBox(HWND hWndOwner, const char* pszText, const char* pszCaption, UINT uType,
                              void* pContext)
{
    (void)hWndOwner;
    (void)uType;
    (void)pContext;
    fprintf(stderr, "box \"%s\": %s\n", pszCaption, pszText);
    return IDOK;
}

int main(void)
{
    char projects[MAX_PATH];
    char libs[MAX_PATH];
    char tagged[MAX_PATH];
    char expanded[MAX_PATH];
    char path[MAX_PATH];
    static const char kText[] = "123456789";
    int failures = 0;

    TQMSetMessageBoxHook(AnswerBox, NULL);

    if (TQMGetProjectsDir(projects) <= 0 || TQMGetLibsDir(libs) <= 0) {
        fprintf(stderr, "directories: the suite's folders are unknown\n");
        return 1;
    }
    printf("projects: %s\n", projects);
    printf("libraries: %s\n", libs);

    /* A library path as the suite stores it, and back. */
    sprintf(path, "%s\\Std\\Motion.tarnlin", libs);
    if (TQMSubstAppPathTags(path, tagged) >= MAX_PATH || TQMUnSubstAppPathTags(tagged, expanded) >= MAX_PATH)
        return 1;
    printf("stored as: %s\n", tagged);
    if (strncmp(tagged, "<$LibsDir>", 10) != 0 || strcmp(expanded, path) != 0) {
        fprintf(stderr, "directories: the path tag did not round-trip (%s)\n", expanded);
        ++failures;
    }

    /* The check value of CRC-32 is CBF43926. */
    printf("crc32(\"%s\"): %08lX\n", kText, (unsigned long)TQMCrc32(kText, (UINT)strlen(kText)));
    if (TQMCrc32(kText, (UINT)strlen(kText)) != 0xCBF43926UL)
        ++failures;

    printf("valid file name \"Motion.tarnlin\": %s\n", TQMIsValidFileName("Motion.tarnlin", TRUE) ? "yes" : "no");
    if (!TQMIsValidFileName("Motion.tarnlin", TRUE) || TQMIsValidFileName("a\\b", TRUE))
        ++failures;
    return failures == 0 ? 0 : 1;
}
