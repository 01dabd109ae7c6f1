#include "outputflow.h"
#include "outputs/sheetview.h"
#include "support/printers.h"

#include <QFileInfo>

namespace {

/// A flow that writes workbooks.
class ExcelFlow : public Flow
{
public:
    explicit ExcelFlow(const char *kind, const Dataset &table = grid({"n|t", "1|x"}))
        : Flow(table)
    {
        out = path(QString("out.%1").arg(kind));
        output->setPath(out, "Data");
        output->setFileType(out.endsWith(".xls") ? FileType::ExcelXls : FileType::ExcelXlsx);
    }
    QStringList withNames(QStringList texts) const
    {
        return texts.replaceInStrings(out, "OUT").replaceInStrings(folder.path(), "DIR");
    }

    QString out;
};

const QStringList formatInfos{
    "Formatting=Automatic sets Excel column formats as:", "n: Number", "t: Text", "Set 'Formatting' option to change"};
const QStringList oneRow{"'n/49|'t/49", "1|'x/49"};

class ExcelNodeTest : public testing::TestWithParam<const char *>
{
};

INSTANTIATE_TEST_SUITE_P(Kinds, ExcelNodeTest, testing::Values("xlsx", "xls"));

} // namespace

TEST_P(ExcelNodeTest, WritesByItsModeAndTellsWhatItDid)
{
    struct ModeCase
    {
        const char *what;
        bool before; // a file with one row in the sheet "Data"
        int mode, scope;
        QString sheet;
        QString info;
        QStringList after;
    };
    const int overwrite = WriteMode::Overwrite;
    const int append = WriteMode::Append;
    const int file = OverwriteScope::File;
    const int sheet = OverwriteScope::Sheet;
    const QStringList data = QStringList("Data") + oneRow;
    const ModeCase cases[] = {
        {"Overwrite makes a file", false, overwrite, sheet, "Data", "Created file 'OUT'", data},
        {"without a name the sheet has that of the program", false, overwrite, sheet, "", "Created file 'OUT'",
            QStringList("Quillmere") + oneRow},
        {"Overwrite replaces a sheet", true, overwrite, sheet, "Data", "Overwrote sheet 'OUT[Data]'", data},
        {"or adds it", true, overwrite, sheet, "New", "Overwrote sheet 'OUT[New]'", data + QStringList("New") + oneRow},
        {"or replaces the file", true, overwrite, file, "New", "Overwrote file 'OUT'", QStringList("New") + oneRow},
        {"Append adds rows without a second header", true, append, sheet, "Data", "Appended sheet 'OUT[Data]'",
            data + QStringList("1|'x/49")},
        {"whatever the scope of overwriting", true, append, file, "Data", "Appended sheet 'OUT[Data]'",
            data + QStringList("1|'x/49")},
        {"Append to a sheet that isn't there begins with the header", true, append, sheet, "New",
            "Appended sheet 'OUT[New]'", data + QStringList("New") + oneRow},
        {"Append makes a file", false, append, sheet, "Data", "Created file 'OUT'", data},
        {"New makes a file", false, WriteMode::New, sheet, "Data", "Created file 'OUT'", data},
    };
    for (const ModeCase &c : cases) {
        SCOPED_TRACE(c.what);
        ExcelFlow flow(GetParam());
        if (c.before) {
            ASSERT_EQ(flow.run(), NodeState::Processed);
        }
        flow.output->setPath(flow.out, c.sheet);
        flow.changeOptions([&c](OutputOptions &o) {
            o.writeMode = c.mode;
            o.overwriteScope = c.scope;
        });
        EXPECT_EQ(flow.run(), NodeState::Processed);
        EXPECT_EQ(flow.withNames(flow.output->infos()), QStringList(c.info) + formatInfos);
        EXPECT_EQ(flow.output->warnings(), QStringList());
        EXPECT_EQ(shownBook(flow.out), c.after);
        EXPECT_EQ(flow.output->writtenFiles(), QSet<QString>{flow.out});
    }
}

TEST_P(ExcelNodeTest, NewLeavesAFileThatIsThere)
{
    ExcelFlow flow(GetParam());
    flow.put(QFileInfo(flow.out).fileName(), "precious");
    flow.changeOptions([](OutputOptions &o) { o.writeMode = WriteMode::New; });
    EXPECT_EQ(flow.run(), NodeState::Failed);
    EXPECT_EQ(flow.withNames(flow.output->infos()), QStringList("Write mode='New' and 'OUT' already exists"));
    EXPECT_EQ(flow.output->warnings(), QStringList());
    EXPECT_EQ(flow.bytes(QFileInfo(flow.out).fileName()), "precious");
}

TEST_P(ExcelNodeTest, AFailureIsTold)
{
    ExcelFlow flow(GetParam());
    flow.output->setPath(flow.out, "a:b");
    EXPECT_EQ(flow.run(), NodeState::Failed);
    EXPECT_EQ(flow.withNames(flow.output->warnings()),
        QStringList("Unable to add sheet to 'OUT'.\n':' is not allowed in Excel sheet names."));
    EXPECT_EQ(flow.output->infos(), formatInfos);
    flow.output->setPath("", "Data");
    EXPECT_EQ(flow.run(), NodeState::Failed);
    EXPECT_EQ(flow.output->warnings().size(), 1);
    EXPECT_TRUE(flow.output->warnings().value(0).startsWith("Failed to write to "));
}

TEST_P(ExcelNodeTest, FormatsAreToldWhenTheyWereFound)
{
    ExcelFlow flow(GetParam());
    flow.changeOptions([](OutputOptions &o) { o.excelFormatMode = ExcelFormatMode::General; });
    EXPECT_EQ(flow.run(), NodeState::Processed);
    EXPECT_EQ(flow.withNames(flow.output->infos()), QStringList("Created file 'OUT'"));
    EXPECT_EQ(shownBook(flow.out), (QStringList{"Data", "'n/49|'t/49", "'1|'x"}));
}

TEST_P(ExcelNodeTest, TellsWhichColumnsAutomaticFormatsChange)
{
    ExcelFlow flow(GetParam(), grid({"zip|n|start|on|name", "7|1|1:30|True|x", "007|1.5|2:00|false|y"}));
    const QString line =
        "Automatic formats change texts in 2 columns: 'zip' ('007' to a number), 'start' ('1:30' to a time)";
    EXPECT_EQ(flow.run(), NodeState::Processed);
    EXPECT_EQ(flow.output->infos().last(), line);
    flow.changeOptions([](OutputOptions &o) { o.excelFormatMode = ExcelFormatMode::Manual; });
    EXPECT_EQ(flow.run(), NodeState::Processed);
    EXPECT_EQ(flow.output->infos().last(), line) << "where nothing was chosen by hand either";
    const Dataset &table = flow.input->datasetConst();
    flow.output->columns().setExcelFormats({{table.columnId(ColumnIndex(0)), ExcelColumnFormat::Number},
                                               {table.columnId(ColumnIndex(2)), ExcelColumnFormat::Time}},
        &table);
    EXPECT_EQ(flow.run(), NodeState::Processed);
    EXPECT_EQ(flow.withNames(flow.output->infos()), QStringList("Overwrote sheet 'OUT[Data]'"));
}

TEST_P(ExcelNodeTest, TriesTheTemplateAfterAFailureToo)
{
    ExcelFlow flow(GetParam());
    ASSERT_EQ(flow.run(), NodeState::Processed);
    spreadsheet::Book book(kindOfPath(flow.out));
    book.addSheet("Look")->setCol(0, 44, false);
    const QString file = QString("model.%1").arg(GetParam());
    ASSERT_TRUE(book.save(flow.path(file)));
    flow.output->setPath(flow.out, "DATA"); // the writer tells it from "Data", a workbook doesn't
    flow.changeOptions([&](OutputOptions &o) {
        o.useStyleTemplate = true;
        o.styleTemplatePath = flow.path(file) + "[Look]";
    });
    EXPECT_EQ(flow.run(), NodeState::Failed);
    EXPECT_EQ(flow.withNames(flow.output->warnings()), QStringList("Unable to add sheet to 'OUT'."));
    EXPECT_EQ(flow.withNames(flow.output->infos()).last(), "Copied styling from 'DIR/" + file + "[Look]'");
    EXPECT_EQ(shownBook(flow.out), QStringList("Data") + oneRow);
    flow.output->setPath(flow.path("none/out.xlsx"), "Data");
    EXPECT_EQ(flow.run(), NodeState::Failed);
    EXPECT_EQ(flow.withNames(flow.output->warnings()).last(),
        "Unable to copy styling from 'DIR/" + file + "[Look]: Unable to read 'DIR/none/out.xlsx'.");
}

TEST(ExcelNode, ATableThatIsTooLargeIsWrittenAsFarAsItFits)
{
    Dataset table;
    table.setSize(1, 257);
    table.setValue(RowIndex(0), ColumnIndex(256), "beyond");
    table.setValue(RowIndex(0), ColumnIndex(0), "first");
    ExcelFlow flow("xls", table);
    flow.changeOptions([](OutputOptions &o) { o.writeHeader = false; });
    EXPECT_EQ(flow.run(), NodeState::Processed);
    EXPECT_EQ(flow.output->warnings(),
        (QStringList{
            "The output dataset exceeds the maximum size for an Excel .xls file of 65536 rows x 256 columns, it "
            "may be truncated by Excel (the Excel .xlsx format supports larger files)",
            "1 value(s) beyond the size of the sheet were not written"}));
    EXPECT_EQ(shownBook(flow.out), (QStringList{"Data", "'first/49"}));
}

TEST_P(ExcelNodeTest, TakesTheLookOfATemplate)
{
    struct TemplateCase
    {
        const char *what;
        QString path;
        QString document;
        QStringList infos;
        QStringList warnings;
    };
    const QString file = QString("model.%1").arg(GetParam());
    const TemplateCase cases[] = {
        {"by a whole path", "DIR/" + file + "[look]", "", {"Copied styling from 'DIR/" + file + "[look]'"}, {}},
        {"beside the document", " " + file + "[LOOK] ", "DIR/a.transform",
            {"Copied styling from 'DIR/" + file + "[LOOK]'"}, {}},
        {"there is nothing to be relative to", file + "[Look]", "", {},
            {"Relative file path for '" + file + "', but .transform not saved for it to be relative to"}},
        {"no sheet, no word", file, "", {}, {}},
        {"no such sheet", "DIR/" + file + "[None]", "", {},
            {"Unable to copy styling from 'DIR/" + file + "[None]: Unable to read sheet 'None' from 'DIR/" + file
                + "'."}},
        {"no such file", "DIR/none.xls[S]", "", {},
            {"Unable to copy styling from 'DIR/none.xls[S]: Unable to read 'DIR/none.xls'."}},
    };
    for (const TemplateCase &c : cases) {
        SCOPED_TRACE(c.what);
        ExcelFlow flow(GetParam());
        spreadsheet::Book book(kindOfPath(file));
        book.addSheet("Look")->setCol(0, 44, false);
        ASSERT_TRUE(book.getSheet(0)->writeStr(0, 0, "x"));
        ASSERT_TRUE(book.save(flow.path(file)));
        const auto withDir = [&flow](QString text) { return text.replace("DIR", flow.folder.path()); };
        flow.scene.setDocumentPath(withDir(c.document));
        flow.changeOptions([&](OutputOptions &o) {
            o.excelFormatMode = ExcelFormatMode::General;
            o.useStyleTemplate = true;
            o.styleTemplatePath = withDir(c.path);
        });
        EXPECT_EQ(flow.run(), NodeState::Processed);
        EXPECT_EQ(flow.withNames(flow.output->infos()), QStringList("Created file 'OUT'") + c.infos);
        EXPECT_EQ(flow.withNames(flow.output->warnings()), c.warnings);
        spreadsheet::Book written(kindOfPath(flow.out));
        ASSERT_TRUE(written.load(flow.out));
        EXPECT_EQ(written.getSheet(0)->colWidth(0) > 43, !c.infos.isEmpty());
        EXPECT_EQ(written.getSheet(0)->readStr(0, 0), "n");
    }
}
