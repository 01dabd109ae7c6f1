#include "data/values.h"
#include "transforms/verify/ruletable.h"

namespace {

constexpr const char *columnRuleToolTips[] = {
    // 0
    "Verify that column has the expected name.\n"
    "Matching is sensitive to whitespace (and case, if 'case sensitive' is checked).",
    // 1
    "Verify that every value in the column is a real number or belongs to the list of special values "
    "supplied.\n"
    "Separate multiple values by Commas.\n"
    "List matching is sensitive to whitespace (and case, if 'case sensitive' is checked).",
    // 2
    "Verify that every value in the column is an integer (whole) number or belongs to the list of "
    "special values supplied.\n"
    "Separate multiple values by Commas.\n"
    "List matching is sensitive to whitespace (and case, if 'case sensitive' is checked).",
    // 3
    "Verify that every value in the column is a valid date in the supplied date format, e.g. "
    "dd/MM/yyyy.\n"
    "%1",
    // 4
    "Verify that no value in the column appears more than once.\n"
    "Matches as text.\n"
    "Matching is sensitive to whitespace (and case, if 'case sensitive' is checked).",
    // 5
    "Verify every possible value between the minimum and maximum values in the column occurs at least "
    "once.\n"
    "E.g. '4','1','2','4' has a gap at '3'.",
    // 6
    "Verify every possible date between the minimum and maximum values in the column occurs at least "
    "once.\n"
    "E.g. for dd/MM/yyyy format '01/01/2000', '02/01/2000' and '04/01/2000' has a gap at '03/01/2000'.",
    // 7
    "Verify that no values in the column are empty.\n"
    "A value containing whitespace is not considered empty.",
    // 8
    "Verify that at least 1 value in the column is not empty.\n"
    "A value containing whitespace is not considered empty.",
    // 9
    "Verify the minimum value in the column. Numbers equal to this value are ok. Non-numeric values are "
    "ignored.",
    // 10
    "Verify the maximum value in the column. Numbers equal to this value are ok. Non-numeric values are "
    "ignored.",
    // 11
    "Verify the minimum value in the column. Numbers equal to this value are ok. Non-numeric values are "
    "ignored.",
    // 12
    "Verify the maximum value in the column. Numbers equal to this value are ok. Non-numeric values are "
    "ignored.",
    // 13
    "Verify the first allowed date in the column. Dates equal to this value are ok. Non-date values are "
    "ignored.",
    // 14
    "Verify the last allowed date in the column. Dates equal to this value are ok. Non-date values are "
    "ignored.",
    // 15
    "Verify the minimum number of characters in each value in the column.\n"
    "Whitespace characters are counted.",
    // 16
    "Verify the maximum number of characters in each value in the column.\n"
    "Whitespace characters are counted.",
    // 17
    "Verify that all values in the column belong to this list.\n"
    "Separate multiple values by Commas.\n"
    "Matching is sensitive to whitespace (and case, if 'case sensitive' is checked).",
    // 18
    "Verify that no values in the column belong to this list.\n"
    "Separate multiple values by Commas.\n"
    "Matching is sensitive to whitespace (and case, if 'case sensitive' is checked).",
    // 19
    "Verify that every listed value appears at least once in the column, matching as text.\n"
    "Separate multiple values by Commas.\n"
    "Matching is sensitive to whitespace (and case, if 'case sensitive' is checked).",
    // 20
    "Verify that every value in the column matches the regular expression supplied.\n"
    "E.g.'$x.*$' to match values that start with 'x'.\n"
    "Matching is sensitive to whitespace (and case, if 'case sensitive' is checked).",
    // 21
    "Verify that every value in the column starts with the text supplied.\n"
    "Matching is sensitive to whitespace (and case, if 'case sensitive' is checked).",
    // 22
    "Verify that every value in the column ends with the text supplied.\n"
    "Matching is sensitive to whitespace (and case, if 'case sensitive' is checked).",
    // 23
    "Verify that every value in the column contains the text supplied.\n"
    "Matching is sensitive to whitespace (and case, if 'case sensitive' is checked).",
    // 24
    "Verify that any letters are lower case.",
    // 25
    "Verify that any letters are upper case.",
    // 26
    "Verify that any values are title case.\n"
    "E.g. 'Title Case.'",
    // 27
    "Verify that any values are sentence case.\n"
    "E.g. 'Sentence case.'",
    // 28
    "Verify that every value in the column is the path of an existing folder on this computer.",
    // 29
    "Verify that every value in the column is the path of an existing file on this computer.",
    // 30
    "Verify that every value in the column is a valid email address.",
    // 31
    "Verify that every value in the column is a valid telephone number. E.g.:\n"
    "1-123-456-7890\n"
    "1 (123) 456 7890\n"
    "1.123.456.7890\n"
    "+91 (123) 456-7890",
    // 32
    "Verify that every value in the column is a valid EAN13 barcode number\n"
    "(13 digits, including a valid checksum digit).\n"
    "Whitespace is ignored.",
    // 33
    "Verify that every value in the column is a valid UPC-A barcode number\n"
    "(12 digits, including a valid checksum digit).\n"
    "Whitespace is ignored.",
    // 34
    "Verify that values do not contain punctuation characters.\n"
    "E.g. '!', ';' or '.'.",
    // 35
    "Verify that values do not contain digit characters\n"
    "E.g. '0' or '9'.",
    // 36
    "Verify that values do not contain currency characters.\n"
    "E.g. '$', '£' or '€'.",
    // 37
    "Verify that values do not contain whitespace characters.\n"
    "E.g. Space, Tab, Carriage Return or Line Feed.",
    // 38
    "Verify that values do not contain leading or trailing whitespace characters.",
    // 39
    "Verify that values do not contain Tab characters.",
    // 40
    "Verify that values do not contain Carriage Return characters.",
    // 41
    "Verify that values do not contain Line Feed characters.",
    // 42
    "Verify that values do not contain consecutive Space characters.",
    // 43
    "Verify that no value is all whitespace characters.",
    // 44
    "Verify that values do not contain symbol characters.\n"
    "E.g. '$', '+', '=' or '>'.",
    // 45
    "Verify that values do not contain non-ASCII characters.",
    // 46
    "Verify that values do not contain non-printable characters.",
    // 47
    "Verify that no value in the column appears more than once.\n"
    "Matches as integers.\n"
    "E.g. '1', '+1', ' 1' and '01' are duplicates.",
    // 48
    "Verify that no value in the column appears more than once.\n"
    "Matches as dates.\n"
    "E.g. '01/01/2000' and '1/1/2000' are duplicates.",
    // 49
    "Verify that every value in the column is a valid ISBN-10 or ISBN-13 number.\n"
    "Whitespace and dash characters are ignored.",
    // 50
    "Verify that every value in the column is a valid IBAN code.\n"
    "Whitespace characters are ignored.",
    // 51
    "Verify that every value in the column is a valid GTIN-8, GTIN-12, GTIN-13 or GTIN-14 barcode "
    "number\n"
    "(8, 12, 13 or 14 digits, including a valid checksum digit).\n"
    "Whitespace is ignored.",
    // 52
    "Verify that every value in the column is a valid ASIN (Amazon Standard Identification Number).\n"
    "Whitespace is ignored.",
    // 53
    "Verify that every value in the column is empty.\n"
    "A value containing whitespace is not considered empty.",
};

constexpr const char *datasetRuleToolTips[] = {
    // 0
    "Verify that no 2 column names in the dataset are the same.\n"
    "Matching is sensitive to whitespace (and case, if 'case sensitive' is checked).",
    // 1
    "Verify the minimum number of columns in the dataset.",
    // 2
    "Verify the maximum number of columns in the dataset.",
    // 3
    "Verify the minimum number of rows in the dataset.",
    // 4
    "Verify the maximum number of rows in the dataset.",
    // 5
    "Verify that no rows in the dataset has an empty value for every column.\n"
    "A value containing whitespace is not considered empty.",
};

template<int count>
QString tipAt(const char *const (&tips)[count], int id)
{
    return id >= 0 && id < count ? QString::fromUtf8(tips[id]) : QString();
}

} // namespace

namespace VerifyRuleTable {

QString columnRuleToolTip(int ruleId)
{
    const QString tip = tipAt(columnRuleToolTips, ruleId);
    return ruleId == 3 ? tip.arg(dateFormatHelp()) : tip;
}

QString datasetRuleToolTip(int ruleId)
{
    return tipAt(datasetRuleToolTips, ruleId);
}

} // namespace VerifyRuleTable
