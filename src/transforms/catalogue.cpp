#include "transforms/catalogue.h"

#include "transforms/frame/transform.h"

#include <QHash>

// Each class's source defines its own maker (TRANSFORM_FACTORY).
Transform *makeTransformBin();
Transform *makeTransformCalculate();
Transform *makeTransformCase();
Transform *makeTransformChop();
Transform *makeTransformClone();
Transform *makeTransformCluster();
Transform *makeTransformCompare();
Transform *makeTransformConcat();
Transform *makeTransformConcatRows();
Transform *makeTransformCopy();
Transform *makeTransformCorrelate();
Transform *makeTransformCount();
Transform *makeTransformCross();
Transform *makeTransformDateFormat();
Transform *makeTransformDecode();
Transform *makeTransformDedupe();
Transform *makeTransformDiff();
Transform *makeTransformExtract();
Transform *makeTransformFillDown();
Transform *makeTransformFilter();
Transform *makeTransformGather();
Transform *makeTransformHash();
Transform *makeTransformHeader();
Transform *makeTransformIf();
Transform *makeTransformImpute();
Transform *makeTransformInsert();
Transform *makeTransformInterpolate();
Transform *makeTransformIntersect();
Transform *makeTransformJavascript();
Transform *makeTransformJoin();
Transform *makeTransformList();
Transform *makeTransformLookup();
Transform *makeTransformMoving();
Transform *makeTransformNewCol();
Transform *makeTransformNewRows();
Transform *makeTransformNgram();
Transform *makeTransformNumBase();
Transform *makeTransformNumberFormat();
Transform *makeTransformOffset();
Transform *makeTransformOutliers();
Transform *makeTransformPad();
Transform *makeTransformPivot();
Transform *makeTransformPseudonym();
Transform *makeTransformRandom();
Transform *makeTransformRemoveCols();
Transform *makeTransformRenameCols();
Transform *makeTransformReorder();
Transform *makeTransformReplaceMulti();
Transform *makeTransformReshape();
Transform *makeTransformRowNum();
Transform *makeTransformSample();
Transform *makeTransformScale();
Transform *makeTransformSequence();
Transform *makeTransformSlice();
Transform *makeTransformSlide();
Transform *makeTransformSort();
Transform *makeTransformSplit();
Transform *makeTransformSplitName();
Transform *makeTransformSplitRows();
Transform *makeTransformSpread();
Transform *makeTransformStack();
Transform *makeTransformStamp();
Transform *makeTransformStats();
Transform *makeTransformSubstitute();
Transform *makeTransformSubtract();
Transform *makeTransformSummary();
Transform *makeTransformTotal();
Transform *makeTransformTranspose();
Transform *makeTransformUUID();
Transform *makeTransformUnfill();
Transform *makeTransformUnique();
Transform *makeTransformUnits();
Transform *makeTransformVerify();
Transform *makeTransformWhitespace();

namespace Catalogue {

const std::vector<CatalogueRow> &rows()
{
    constexpr int unlimited = Transform::unlimitedInputs;
    // id, stored name, button, category, inputs at least and at most, advanced, can compare, drill-down, maker
    static const std::vector<CatalogueRow> table{
        {0, "Bin", "Bin", Transform::Analysis, 1, 1, true, false, true, makeTransformBin},
        {1, "Calculate", "Calculate", Transform::Column, 1, 1, false, false, false, makeTransformCalculate},
        {2, "Case", "Case", Transform::Format, 1, 1, false, true, false, makeTransformCase},
        {3, "Chop", "Chop", Transform::Format, 1, 1, false, true, false, makeTransformChop},
        {4, "Clone", "Clone", Transform::Other, 1, 1, true, false, false, makeTransformClone},
        {5, "Cluster", "Cluster", Transform::Analysis, 1, 1, true, false, false, makeTransformCluster},
        {6, "Compare_Cols", "Compare Cols", Transform::Column, 1, 1, true, false, false, makeTransformCompare},
        {7, "Concat", "Concat Cols", Transform::Column, 1, 1, false, false, false, makeTransformConcat},
        {8, "Concat_Rows", "Concat Rows", Transform::Row, 1, 1, true, false, false, makeTransformConcatRows},
        {9, "Copy", "Copy Cols", Transform::Column, 1, 1, false, false, false, makeTransformCopy},
        {10, "Correlate", "Correlate", Transform::Analysis, 1, 1, true, false, false, makeTransformCorrelate},
        {11, "Count", "Count", Transform::Analysis, 1, 1, false, false, true, makeTransformCount},
        {12, "Cross", "Cross", Transform::Merge, 2, unlimited, true, false, false, makeTransformCross},
        {13, "Date_Format", "DateTime Format", Transform::Format, 1, 1, false, true, false, makeTransformDateFormat},
        {14, "Decode", "Decode", Transform::Format, 1, 1, true, true, false, makeTransformDecode},
        {15, "Dedupe", "Dedupe", Transform::Row, 1, 1, false, false, true, makeTransformDedupe},
        {16, "Difference", "Difference", Transform::Analysis, 2, 2, true, false, false, makeTransformDiff},
        {17, "Extract", "Extract", Transform::Format, 1, 1, false, true, false, makeTransformExtract},
        {18, "Fill", "Fill", Transform::Format, 1, 1, false, true, false, makeTransformFillDown},
        {19, "Filter", "Filter", Transform::Row, 1, 1, false, false, false, makeTransformFilter},
        {20, "Gather", "Gather", Transform::Column, 1, 1, true, false, false, makeTransformGather},
        {21, "Hash", "Hash", Transform::Other, 1, 1, true, true, false, makeTransformHash},
        {22, "Header", "Header", Transform::Row, 1, 1, true, false, false, makeTransformHeader},
        {23, "If", "If", Transform::Column, 1, 1, true, false, false, makeTransformIf},
        {24, "Impute", "Impute", Transform::Other, 1, 1, true, true, false, makeTransformImpute},
        {25, "Insert", "Insert", Transform::Format, 1, 1, false, true, false, makeTransformInsert},
        {26, "Intersect", "Intersect", Transform::Merge, 2, 2, true, false, false, makeTransformIntersect},
        {27, "Interpolate", "Interpolate", Transform::Merge, 2, 2, true, false, false, makeTransformInterpolate},
        {28, "Javascript", "Javascript", Transform::Other, 1, 1, true, false, false, makeTransformJavascript},
        {29, "Join", "Join", Transform::Merge, 2, 2, false, false, false, makeTransformJoin},
        {30, "List", "List", Transform::Format, 1, 1, false, false, false, makeTransformList},
        {31, "Lookup", "Lookup", Transform::Merge, 2, 2, false, false, false, makeTransformLookup},
        {32, "Moving", "Moving", Transform::Column, 1, 1, true, false, false, makeTransformMoving},
        {33, "New_Col", "New Col", Transform::Column, 1, 1, false, false, false, makeTransformNewCol},
        {34, "New_Rows", "New Rows", Transform::Row, 1, 1, true, false, false, makeTransformNewRows},
        {35, "Ngram", "Ngram", Transform::Analysis, 1, 1, true, false, true, makeTransformNgram},
        {36, "Num_Base", "Num Base", Transform::Format, 1, 1, true, true, false, makeTransformNumBase},
        {37, "Num_Format", "Num Format", Transform::Format, 1, 1, false, true, false, makeTransformNumberFormat},
        {38, "Offset", "Offset", Transform::Column, 1, 1, true, true, false, makeTransformOffset},
        {39, "Outliers", "Outliers", Transform::Other, 1, 1, true, true, false, makeTransformOutliers},
        {40, "Pad", "Pad", Transform::Format, 1, 1, false, true, false, makeTransformPad},
        {41, "Pivot", "Pivot", Transform::Analysis, 1, 1, true, false, true, makeTransformPivot},
        {42, "Pseudonym", "Pseudonym", Transform::Column, 1, 1, true, false, false, makeTransformPseudonym},
        {43, "Random", "Random", Transform::Other, 1, 1, true, false, false, makeTransformRandom},
        {44, "Remove", "Remove Cols", Transform::Column, 1, 1, false, false, false, makeTransformRemoveCols},
        {46, "Rename_Cols", "Rename Cols", Transform::Column, 1, 1, false, false, false, makeTransformRenameCols},
        {47, "Reorder", "Reorder Cols", Transform::Column, 1, 1, false, false, false, makeTransformReorder},
        {49, "Replace_Multi", "Replace", Transform::Format, 1, 1, false, true, false, makeTransformReplaceMulti},
        {50, "Reshape", "Reshape", Transform::Column, 1, 1, true, false, false, makeTransformReshape},
        {51, "Row_Num", "Row Num", Transform::Row, 1, 1, false, false, false, makeTransformRowNum},
        {52, "Sample", "Sample", Transform::Row, 1, 1, false, false, false, makeTransformSample},
        {53, "Scale", "Scale", Transform::Format, 1, 1, true, true, false, makeTransformScale},
        {54, "Sequence", "Sequence", Transform::Row, 1, 1, true, false, false, makeTransformSequence},
        {55, "Slice", "Slice", Transform::Row, 1, 1, true, false, false, makeTransformSlice},
        {56, "Slide", "Slide", Transform::Format, 1, 1, true, true, false, makeTransformSlide},
        {57, "Sort", "Sort", Transform::Row, 1, 1, false, false, false, makeTransformSort},
        {58, "Split", "Split Col", Transform::Column, 1, 1, false, false, false, makeTransformSplit},
        {59, "Split_Name", "Split Name", Transform::Column, 1, 1, true, false, false, makeTransformSplitName},
        {60, "Split_Rows", "Split Rows", Transform::Row, 1, 1, true, false, false, makeTransformSplitRows},
        {61, "Spread", "Spread", Transform::Column, 1, 1, true, false, false, makeTransformSpread},
        {62, "Stack", "Stack", Transform::Merge, 1, unlimited, false, false, false, makeTransformStack},
        {63, "Stamp", "Stamp", Transform::Other, 1, 1, true, false, false, makeTransformStamp},
        {64, "Stats", "Stats", Transform::Analysis, 1, 1, true, false, false, makeTransformStats},
        {65, "Substitute", "Substitute", Transform::Other, 1, 1, true, false, false, makeTransformSubstitute},
        {66, "Subtract", "Subtract", Transform::Merge, 2, 2, true, false, false, makeTransformSubtract},
        {67, "Summary", "Summary", Transform::Analysis, 1, 1, false, false, false, makeTransformSummary},
        {68, "Total", "Total", Transform::Analysis, 1, 1, true, false, false, makeTransformTotal},
        {69, "Transpose", "Transpose", Transform::Other, 1, 1, false, false, false, makeTransformTranspose},
        {71, "Unfill", "Unfill", Transform::Format, 1, 1, true, true, false, makeTransformUnfill},
        {72, "Unique", "Unique", Transform::Row, 1, 1, true, false, true, makeTransformUnique},
        {73, "Units", "Units", Transform::Other, 1, 1, true, true, false, makeTransformUnits},
        {74, "UUID", "UUID", Transform::Other, 1, 1, true, false, false, makeTransformUUID},
        {75, "Verify", "Verify", Transform::Other, 1, 1, true, false, false, makeTransformVerify},
        {76, "Whitespace", "Whitespace", Transform::Format, 1, 1, false, true, false, makeTransformWhitespace},
    };
    return table;
}

const CatalogueRow *find(const QString &typeName)
{
    static const QHash<QString, const CatalogueRow *> byName = [] {
        QHash<QString, const CatalogueRow *> map;
        for (const CatalogueRow &row : rows()) {
            map.insert(QString::fromLatin1(row.typeName), &row);
        }
        return map;
    }();
    return byName.value(typeName);
}

Transform *create(const QString &typeName)
{
    const CatalogueRow *row = find(typeName);
    return row && row->create ? row->create() : nullptr;
}

} // namespace Catalogue
