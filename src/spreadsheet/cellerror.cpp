#include "spreadsheet/cellerror.h"

namespace spreadsheet {
namespace {

struct ErrorName
{
    int code;
    std::string_view text;
};

constexpr ErrorName errors[] = {{0x0F, "#VALUE!"}, {0x00, "#NULL!"}, {0x07, "#DIV/0!"}, {0x17, "#REF!"},
    {0x1D, "#NAME?"}, {0x24, "#NUM!"}, {0x2A, "#N/A"}, {0x2B, "#GETTING_DATA"}};

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
