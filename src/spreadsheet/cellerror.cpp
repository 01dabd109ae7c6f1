#include "spreadsheet/cellerror.h"

namespace spreadsheet {
namespace {

struct ErrorName
{
    int code;
    std::string_view text;
};

// The last ones have no code in any file; theirs lie beyond the one byte that codes have there.
constexpr ErrorName errors[] = {{0x0F, "#VALUE!"}, {0x00, "#NULL!"}, {0x07, "#DIV/0!"}, {0x17, "#REF!"},
    {0x1D, "#NAME?"}, {0x24, "#NUM!"}, {0x2A, "#N/A"}, {0x2B, "#GETTING_DATA"}, {0x101, "#SPILL!"}, {0x102, "#CALC!"},
    {0x103, "#FIELD!"}, {0x104, "#BLOCKED!"}, {0x105, "#CONNECT!"}, {0x106, "#UNKNOWN!"}, {0x107, "#BUSY!"}};

} // namespace

int errorCode(std::string_view text)
{
    for (const ErrorName &error : errors) {
        if (error.text == text) {
            return error.code;
        }
    }
    return errors[0].code;
}

std::string_view errorText(int code)
{
    for (const ErrorName &error : errors) {
        if (error.code == code) {
            return error.text;
        }
    }
    return errors[0].text;
}

} // namespace spreadsheet
