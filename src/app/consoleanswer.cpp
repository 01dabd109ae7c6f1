#include "app/consoleanswer.h"

#include "app/commandline.h"
#include "app/programinfo.h"
#include "settings/product.h"

namespace {

struct OptionRow
{
    const char *option;
    const char *meaning;
};

const OptionRow rows[] = {
    {"-cli", "run the document without a window"},
    {"-batch", "with -cli: run the stored batch, without -file, -folder"},
    {"-file ALIAS=PATH", "another file for the items with this alias"},
    {"-folder ALIAS=PATH", "another folder for the inputs with this alias"},
    {"-verbosity LEVEL", "what -cli reports, from 0, nothing, to 4; 0 if not given"},
    {"-verbose", "the same as -verbosity 2"},
    {"-log PATH", "write the report to a file too, with {date} etc. in PATH"},
    {"-report PATH", "with -cli: describe the flow in an HTML or .md file"},
    {"-overwrite", "begin the log file anew instead of appending"},
    {"-version", "the version; with -cli, as the first line of the report"},
    {"-build", "with -cli: tell how the program was built"},
    {"-new_window", "open a window without the last document"},
    {"-help, -h", "show this text"},
};

constexpr int textColumn = 22;

QString usage()
{
    QString text = QStringLiteral("Usage: quillmere [options] [FILE.%1]\n\n"
                                  "Cleans, reshapes, merges, checks and converts tables by a flow of steps, in a\n"
                                  "window or, with -cli, without one.\n\n")
                       .arg(QLatin1String(Product::documentSuffix));
    for (const OptionRow &row : rows) {
        text += QStringLiteral("  %1%2\n").arg(QLatin1String(row.option), -textColumn).arg(QLatin1String(row.meaning));
    }
    return text
           + QStringLiteral("\nOptions may begin with one dash or two. The exit code of a run is 0 when nothing\n"
                            "failed, 1 when an item failed, 255 when the command line or the document can't\n"
                            "be used.\n");
}

} // namespace

QString consoleAnswer(const QStringList &arguments)
{
    bool asksForVersion = false;
    bool isRun = false;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString name = optionName(arguments.at(i));
        if (name == QLatin1String("help") || name == QLatin1String("h")) {
            return usage();
        }
        asksForVersion = asksForVersion || name == QLatin1String("version");
        isRun = isRun || name == QLatin1String("cli");
        i += takesValue(name) ? 1 : 0; // what follows is a value, whatever it looks like
    }
    return asksForVersion && !isRun ? ProgramInfo::nameAndVersion() + QLatin1Char('\n') : QString();
}
