// The two questions and their answers, and the path in its bytes.
#include "core/CommandLine.h"

#include "core/GlobalDeclarations.h"
#include "platform/FileName.h"
#include "platform/SettingsTree.h"

std::optional<QByteArray> CommandLine::Answer(int argc, const char *const *argv)
{
    if (argc != 2)
        return std::nullopt;
    if (qstrcmp(argv[1], "--version") == 0)
        return QByteArray("Zendova") + VersionSuffix + '\n';
    if (qstrcmp(argv[1], "--help") == 0)
        return "Usage: zendova [PATH | --help | --version]\n"
               "PATH is a file and its folder, as in ./notes.txt: .ZUF (text with its font), .TXT "
               "(plain text)\nor .ZCM (custom map).\n"
               "Settings are in " +
               FileName::toBytes(SettingsTree::defaultPath()) + '\n';
    return std::nullopt;
}

QString CommandLine::Path(int argc, const char *const *argv)
{
    QByteArray path;
    for (int i = 1; i < argc; ++i) {
        if (i > 1)
            path += ' ';
        path += argv[i];
    }
    return FileName::fromBytes(path);
}
