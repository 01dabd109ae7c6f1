#include "inputs/metainformation.h"

#include "support/printers.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSysInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(MetaInformation, ReplacesVariables)
{
    QTemporaryDir dir;
    const QString path = dir.filePath("my file.csv");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(1234, 'x'));
    file.flush();
    const QDateTime modified(QDate(2021, 2, 3), QTime(4, 5, 6));
    ASSERT_TRUE(file.setFileTime(modified, QFileDevice::FileModificationTime));
    file.close();
    const MetaSource source{path, "Sheet1", 1500, 12};
    const MetaSource nowhere{QString(), QString(), 2, 3};
    qputenv("USER", "ada");

    struct ExpandCase
    {
        const char *what;
        MetaSource source;
        QString text;
        QString expanded;
    };
    const QLocale system = QLocale::system();
    const ExpandCase cases[] = {
        {"text without variables stays", source, "plain $ ( text )", "plain $ ( text )"},
        {"numbers come without grouping", source, "$(DataRows)*$(DataColumns)=$(DataValues)", "1500*12=18000"},
        {"the file's name and places", source, "$(FilePath)|$(FolderPath)|$(FileName)",
            path + "|" + dir.path() + "|my file.csv"},
        {"its size, sheet and times", source,
            "$(FileSizeBytes)|$(FileSheetName)|$(FileUpdatedDateTime)|$(FileUpdatedDate)",
            "1234|Sheet1|" + system.toString(modified, QLocale::ShortFormat) + "|"
                + system.toString(modified.date(), QLocale::ShortFormat)},
        {"who and where", source, "$(UserName)@$(ComputerName)", "ada@" + QSysInfo::machineHostName()},
        {"unknown variables and open ends stay", source, "$(Nothing) $(DataRows", "$(Nothing) $(DataRows"},
        {"names count with case", source, "$(datarows)", "$(datarows)"},
        {"a variable inside something open", source, "$(x $(DataRows))", "$(x 1500)"},
        {"without a file", nowhere, "$(FileName), $(FileSizeBytes), $(FileSheetName): $(DataRows)",
            "(file not found), (file not found), (file not found): 2"},
    };
    for (const ExpandCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(MetaInformation::expand(c.text, c.source), c.expanded);
    }
}

TEST(MetaInformation, EveryVariableOfTheListHasAValue)
{
    EXPECT_EQ(MetaInformation::variables().size(), 16);
    for (const QString &variable : MetaInformation::variables()) {
        EXPECT_FALSE(MetaInformation::expand(variable, MetaSource()).contains("$(")) << variable.toStdString();
    }
}
