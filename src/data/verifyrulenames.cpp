#include "data/verifyrulenames.h"

namespace {

constexpr const char *columnRuleNames[] = {
    "Match column name",              // 0
    "Numeric except listed",          // 1
    "Integer except listed",          // 2
    "Valid date in format",           // 3
    "No duplicate values",            // 4
    "No gaps in values",              // 5
    "No gaps in values",              // 6
    "No empty values",                // 7
    "At least 1 non-empty",           // 8
    "Minimum value",                  // 9
    "Maximum value",                  // 10
    "Minimum value",                  // 11
    "Maximum value",                  // 12
    "Minimum value",                  // 13
    "Maximum value",                  // 14
    "Minimum characters",             // 15
    "Maximum characters",             // 16
    "Only allow listed values",       // 17
    "Don't allow listed values",      // 18
    "Require listed values",          // 19
    "Matches regex",                  // 20
    "Starts with",                    // 21
    "Ends with",                      // 22
    "Contains",                       // 23
    "Is lower case",                  // 24
    "Is upper case",                  // 25
    "Is title case",                  // 26
    "Is sentence case",               // 27
    "Is local folder",                // 28
    "Is local file",                  // 29
    "Is valid email",                 // 30
    "Is valid telephone num.",        // 31
    "Is valid EAN13",                 // 32
    "Is valid UPC-A",                 // 33
    "No punctuation",                 // 34
    "No digits",                      // 35
    "No currency",                    // 36
    "No whitespace",                  // 37
    "No leading/trailing whitespace", // 38
    "No Tab characters",              // 39
    "No Carriage Returns",            // 40
    "No Line Feeds",                  // 41
    "No double Spaces",               // 42
    "No blank values",                // 43
    "No symbols",                     // 44
    "No non-ASCII",                   // 45
    "No non-printable",               // 46
    "No duplicate values",            // 47
    "No duplicate values",            // 48
    "Is valid ISBN",                  // 49
    "Is valid IBAN",                  // 50
    "Is valid GTIN",                  // 51
    "Is valid ASIN",                  // 52
    "All empty values",               // 53
};

constexpr const char *datasetRuleNames[] = {
    "No duplicate col names", // 0
    "Minimum number of cols", // 1
    "Maximum number of cols", // 2
    "Minimum number of rows", // 3
    "Maximum number of rows", // 4
    "No empty rows",          // 5
};

template<int count>
QString nameAt(const char *const (&names)[count], int id)
{
    return id >= 0 && id < count ? QString::fromLatin1(names[id]) : QString();
}

} // namespace

QString verifyColumnRuleName(int ruleId)
{
    return nameAt(columnRuleNames, ruleId);
}

QString verifyDatasetRuleName(int ruleId)
{
    return nameAt(datasetRuleNames, ruleId);
}
