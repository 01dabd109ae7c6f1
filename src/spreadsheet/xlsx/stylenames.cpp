#include "spreadsheet/xlsx/stylenames.h"

namespace spreadsheet {
namespace {

constexpr std::string_view patterns[] = {"none", "solid", "mediumGray", "darkGray", "lightGray", "darkHorizontal",
    "darkVertical", "darkDown", "darkUp", "darkGrid", "darkTrellis", "lightHorizontal", "lightVertical", "lightDown",
    "lightUp", "lightGrid", "lightTrellis", "gray125", "gray0625"};
constexpr std::string_view lines[] = {"none", "thin", "medium", "dashed", "dotted", "thick", "double", "hair",
    "mediumDashed", "dashDot", "mediumDashDot", "dashDotDot", "mediumDashDotDot", "slantDashDot"};
constexpr std::string_view horizontal[] = {
    "general", "left", "center", "right", "fill", "justify", "centerContinuous", "distributed"};
constexpr std::string_view vertical[] = {"top", "center", "bottom", "justify", "distributed"};
constexpr std::string_view scripts[] = {"baseline", "superscript", "subscript"};

struct UnderlineName
{
    int value;
    std::string_view name;
};
constexpr UnderlineName underlines[] = {
    {1, "single"}, {2, "double"}, {33, "singleAccounting"}, {34, "doubleAccounting"}};

template<size_t count>
constexpr StyleNames namesOf(const std::string_view (&names)[count])
{
    return {names, static_cast<int>(count)};
}

} // namespace

const StyleNames fillPatterns = namesOf(patterns);
const StyleNames borderStyles = namesOf(lines);
const StyleNames horizontalAlignments = namesOf(horizontal);
const StyleNames verticalAlignments = namesOf(vertical);
const StyleNames fontScripts = namesOf(scripts);

int StyleNames::valueOf(std::string_view name, int otherwise) const
{
    for (int i = 0; i < count; ++i) {
        if (names[i] == name) {
            return i;
        }
    }
    return otherwise;
}

int underlineOf(std::string_view name)
{
    for (const UnderlineName &underline : underlines) {
        if (underline.name == name) {
            return underline.value;
        }
    }
    return 0;
}

std::string_view underlineName(int underline)
{
    for (const UnderlineName &known : underlines) {
        if (known.value == underline) {
            return known.name;
        }
    }
    return {};
}

} // namespace spreadsheet
