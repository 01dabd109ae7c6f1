#pragma once

#include "files/delimiters.h"
#include "files/medium.h"
#include "inputs/inputschema.h"
#include "settings/filetypes.h"
#include "settings/optionfield.h"

#include <QChar>
#include <QList>
#include <QString>
#include <QVariantList>

/// The files that an input from a folder reads.
struct FolderInput
{
    QString folder;                              ///< without wildcards
    QString fileMatch = QStringLiteral("*.csv"); ///< one wildcard; case doesn't count
    QString sheetMatch = QStringLiteral("*");    ///< the same for the sheets of a workbook
    bool recurse = false;                        ///< folders inside the folder too
};

/// All options of an input, as documents store them and panels edit them. The numbers stand in documents and settings.
struct InputOptions
{
    enum Header { NoHeader = 0, FirstRowIsHeader = 1, DecideAtFirstRead = 2 };
    enum MetaPosition { NoMeta = 0, MetaFirstRow = 1, MetaLastRow = 2, MetaColumn = 3 };

    int medium = Medium::File;
    int fileType = FileType::Delimited;
    QString path;      ///< of the file
    QString worksheet; ///< a sheet's name or number; the first sheet when empty
    QString text;      ///< what a clipboard input holds
    FolderInput folder;

    int delimiter = DelimiterKind::Automatic;
    QChar customDelimiter;
    bool ignoreRepeatedDelimiter = false;
    int quoting = 0; ///< a value of InputQuoting
    bool autoFixedWidths = true;
    QList<int> fixedWidths;
    QString encoding = QStringLiteral("Automatic"); ///< or the name of a codec
    int jsonArraysAsRows = 1;                       ///< 0 wide, 1 long; JSON takes other numbers as wide, XML as long
    int ignoredRows = 0;                            ///< at the start, empty ones included
    int headerMode = FirstRowIsHeader;
    bool trim = true;
    bool simplify = true;
    bool ignoreEmptyRows = true;
    bool ignoreEmptyColumns = false;
    bool ignoreHiddenRows = false; ///< of workbooks, as the next
    bool ignoreHiddenColumns = false;
    int metaPosition = NoMeta;
    QString metaText = QStringLiteral("$(CurrentDateTime) $(FilePath)");
    QString metaColumnName = QStringLiteral("Meta Info");
    bool watching = false; ///< read again when the file changes
    InputSchema schema;

    // Options of a new input: type by the extension or the look, then what the user saved for that kind of source
    static InputOptions forFile(const QString &path);
    /// A type of FileType::None goes by the extension of the files.
    static InputOptions forFolder(const FolderInput &folder, int fileType);
    static InputOptions forClipboard(const QString &text);

    /// The source's kind as the settings name it: lower-case extension, "(Empty)" for none, "clipboard".
    QString sourceExtension() const;
    /// Takes over what the user saved as defaults for this file type and source.
    void applySavedDefaults();
    /// File type that a text looks like, for a source without a name.
    static int fileTypeOfText(const QString &text);

    /// Which of the options a panel shows and a reader minds.
    enum Option { Delimiter, Columns, Encoding, Format, IgnoredRows, HiddenRowsAndColumns, Worksheet, Watching };
    bool applies(Option option) const;
    /// True when arrays become rows, by the file type's reading of jsonArraysAsRows.
    bool arraysBecomeRows() const { return fileType == FileType::Json ? jsonArraysAsRows == 1 : jsonArraysAsRows != 0; }

    /// What is declared of each option, in the order of a document's attributes.
    static const OptionFields<InputOptions> &fields();
    /// The values of all options in a fixed order, for comparing.
    QVariantList values() const;
};
