#pragma once

#include <QtGlobal>

namespace spreadsheet {

/// Kinds of records in the workbook stream. Behind those whose name is another than the format's: the standard one.
enum class RecordId : quint16 {
    Formula = 0x0006,
    Eof = 0x000A,
    CalcCount = 0x000C,
    CalcMode = 0x000D,
    Precision = 0x000E, ///< CalcPrecision
    RefMode = 0x000F,   ///< CalcRefMode
    Delta = 0x0010,     ///< CalcDelta
    Iteration = 0x0011, ///< CalcIter
    Protect = 0x0012,
    Password = 0x0013,
    Header = 0x0014,
    Footer = 0x0015,
    ExternSheet = 0x0017,
    Name = 0x0018,          ///< Lbl
    WindowProtect = 0x0019, ///< WinProtect
    Note = 0x001C,
    Selection = 0x001D,
    Date1904 = 0x0022,
    ExternName = 0x0023,
    LeftMargin = 0x0026,
    RightMargin = 0x0027,
    TopMargin = 0x0028,
    BottomMargin = 0x0029,
    PrintHeaders = 0x002A,   ///< PrintRowCol
    PrintGridlines = 0x002B, ///< PrintGrid
    FilePass = 0x002F,       ///< how all that follows is encrypted
    Font = 0x0031,
    Continue = 0x003C,
    Window1 = 0x003D,
    Backup = 0x0040,
    Pane = 0x0041,
    CodePage = 0x0042,
    DefaultColumnWidth = 0x0055, ///< DefColWidth
    ExternCount = 0x0059,
    Crn = 0x005A,
    ObjectRecord = 0x005D,  ///< Obj
    SaveRecalc = 0x005F,    ///< CalcSaveRecalc
    ObjectProtect = 0x0063, ///< ObjProtect
    ColumnInfo = 0x007D,    ///< ColInfo
    Guts = 0x0080,
    SheetOptions = 0x0081, ///< WsBool
    GridSet = 0x0082,
    HorizontalCenter = 0x0083, ///< HCenter
    VerticalCenter = 0x0084,   ///< VCenter
    BoundSheet = 0x0085,       ///< BoundSheet8
    WriteProtect = 0x0086,
    Country = 0x008C,
    HideObjects = 0x008D, ///< HideObj
    Sort = 0x0090,
    Palette = 0x0092,
    StandardWidth = 0x0099,
    FilterMode = 0x009B,
    FunctionGroupCount = 0x009C, ///< BuiltInFnGroupCount
    AutoFilterInfo = 0x009D,
    AutoFilter = 0x009E,
    Setup = 0x00A1,
    ScenarioManager = 0x00AE, ///< ScenMan
    MultipleRk = 0x00BD,      ///< MulRk
    MultipleBlank = 0x00BE,   ///< MulBlank
    Mms = 0x00C1,
    RichLabel = 0x00D6, ///< RString
    DBCell = 0x00D7,
    BookBool = 0x00DA,
    ExtendedFormat = 0x00E0,  ///< XF
    InterfaceHeader = 0x00E1, ///< InterfaceHdr
    InterfaceEnd = 0x00E2,
    MergedCells = 0x00E5, ///< MergeCells
    DrawingGroup = 0x00EB,
    Drawing = 0x00EC,
    SharedStrings = 0x00FC,       ///< SST
    LabelShared = 0x00FD,         ///< LabelSst
    ExtendedStrings = 0x00FF,     ///< ExtSST
    RevisionsHead = 0x0138,       ///< RRDHead
    SheetIds = 0x013D,            ///< RRTabId
    UsesNaturalLanguage = 0x0160, ///< UsesELFs
    Dsf = 0x0161,
    SharedUsers = 0x0194, ///< UsrExcl
    FileLock = 0x0195,
    RevisionsInfo = 0x0196, ///< RRDInfo
    SupBook = 0x01AE,
    ConditionalFormats = 0x01B0,    ///< CondFmt
    ConditionalFormatRule = 0x01B1, ///< CF
    DataValidations = 0x01B2,       ///< DVal
    TextObject = 0x01B6,            ///< TxO
    RefreshAll = 0x01B7,
    HyperLink = 0x01B8, ///< HLink
    CodeName = 0x01BA,
    DataValidation = 0x01BE, ///< Dv
    Dimensions = 0x0200,
    Blank = 0x0201,
    Number = 0x0203,
    Label = 0x0204,
    BoolError = 0x0205, ///< BoolErr
    String = 0x0207,
    Row = 0x0208,
    Index = 0x020B,
    Array = 0x0221,
    DefaultRowHeight = 0x0225,
    Table = 0x0236,
    Window2 = 0x023E,
    FormulaOfVersion3 = 0x0206, ///< what some programs write for Formula
    Rk = 0x027E,
    Style = 0x0293,
    FormulaOfVersion4 = 0x0406,
    NumberFormat = 0x041E,     ///< Format
    SharedFormula = 0x04BC,    ///< ShrFmla
    HyperLinkTooltip = 0x0800, ///< HLinkTooltip
    Bof = 0x0809,
    SheetExtension = 0x0862,          ///< SheetExt
    ExtendedFormatCheck = 0x087C,     ///< XFCRC
    ExtendedFormatExtension = 0x087D, ///< XFExt
};

/// True for what begins workbooks and sheets of the versions 2 to 4.
constexpr bool isOlderBof(RecordId id)
{
    return static_cast<quint16>(id) == 0x0009 || static_cast<quint16>(id) == 0x0209
           || static_cast<quint16>(id) == 0x0409;
}

/// True for a record of a cell with a formula.
constexpr bool isFormula(RecordId id)
{
    return id == RecordId::Formula || id == RecordId::FormulaOfVersion3 || id == RecordId::FormulaOfVersion4;
}

} // namespace spreadsheet
