#include "document/parameterrepairs.h"
#include "support/printers.h"

#include <gtest/gtest.h>

TEST(ParameterRepairs, BringOldOptionsUpToDate)
{
    const struct
    {
        const char *what;
        const char *transform;
        int version;
        const char *name, *value;
        const char *newName, *newValue;
    } cases[] = {
        {"a text delimiter had a blank behind it", "Split", 58, "Delimiter_Type", "Text ", "Delimiter_Type",
            "Text delimiter"},
        {"so had a regex delimiter", "Split Col", 40, "Delimiter_Type", "Regex ", "Delimiter_Type", "Regex delimiter"},
        {"from version 59 on it stays", "Split", 59, "Delimiter_Type", "Text ", "Delimiter_Type", "Text "},
        {"another transform's option stays", "List", 58, "Delimiter_Type", "Text ", "Delimiter_Type", "Text "},
        {"the day number got a fuller name", "Calculate", 67, "Operation", "JulianDay", "Operation", "DateToJulianDay"},
        {"not from version 68 on", "Calculate", 68, "Operation", "JulianDay", "Operation", "JulianDay"},
        {"an exclusive maximum becomes inclusive", "Random", 77, "Maximum_Int", "100", "Maximum_Int", "99"},
        {"also the least integer", "Random", 60, "Maximum_Int", "-2147483648", "Maximum_Int", "-2147483649"},
        {"a fraction stays", "Random", 60, "Maximum_Int", "1.5", "Maximum_Int", "1.5"},
        {"the minimum stays", "Random", 60, "Minimum_Int", "100", "Minimum_Int", "100"},
        {"it was inclusive in version 78", "Random", 78, "Maximum_Int", "100", "Maximum_Int", "100"},
        {"a short date", "Sequence", 78, "User_Define_Minimum_Missing", "2020-1-5", "User_Define_Minimum_Missing_Date",
            "2020-01-05"},
        {"a number", "Sequence", 57, "User_Define_Maximum_Missing", "250", "User_Define_Maximum_Missing_Int", "250"},
        {"a date that there isn't is no number either", "Sequence", 57, "User_Define_Maximum_Missing", "2021-2-29",
            "User_Define_Maximum_Missing_Int", "0"},
        {"words become 0", "Sequence", 71, "User_Define_Minimum_Missing", "soon", "User_Define_Minimum_Missing_Int",
            "0"},
        {"from version 79 on both have their own names", "Sequence", 79, "User_Define_Minimum_Missing", "5",
            "User_Define_Minimum_Missing", "5"},
        {"version 85 called it one hot", "Split", 85, "Into", "One hot encoding", "Into", "Multi hot encoding"},
        {"before that it meant one hot", "Split", 84, "Into", "One hot encoding", "Into", "One hot encoding"},
        {"as it does after", "Split", 86, "Into", "One hot encoding", "Into", "One hot encoding"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        ParameterRecord parameter{QString::fromLatin1(c.name), QString::fromLatin1(c.value)};
        repairParameter(QString::fromLatin1(c.transform), c.version, parameter);
        EXPECT_EQ(parameter.name, QString::fromLatin1(c.newName));
        EXPECT_EQ(parameter.value, QString::fromLatin1(c.newValue));
    }
}
