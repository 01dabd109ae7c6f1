#include "panes/editors/parameterwidgets.h"

#include "panes/editors/boolparameterwidget.h"
#include "panes/editors/charparameterwidget.h"
#include "panes/editors/dateparameterwidget.h"
#include "panes/editors/filtercolumnsparameterwidget.h"
#include "panes/editors/ifparameterwidget.h"
#include "panes/editors/intparameterwidget.h"
#include "panes/editors/labelparameterwidget.h"
#include "panes/editors/localeparameterwidget.h"
#include "panes/editors/longtextparameterwidget.h"
#include "panes/editors/multiplecolumnsparameterwidget.h"
#include "panes/editors/realparameterwidget.h"
#include "panes/editors/renamecolumnsparameterwidget.h"
#include "panes/editors/reordercolumnsparameterwidget.h"
#include "panes/editors/replacetermsparameterwidget.h"
#include "panes/editors/scriptparameterwidget.h"
#include "panes/editors/selectionparameterwidget.h"
#include "panes/editors/singlecolumnfilteredparameterwidget.h"
#include "panes/editors/sortcolumnsparameterwidget.h"
#include "panes/editors/splitrowsparameterwidget.h"
#include "panes/editors/textparameterwidget.h"
#include "panes/editors/uniqueparameterwidget.h"
#include "panes/editors/verifyrulesparameterwidget.h"
#include "transforms/options/parameter.h"

namespace {

using Maker = QWidget *(*)(Parameter &parameter, Node &node, QWidget *parent);

struct Kind
{
    Parameter::Kind kind;
    Maker make;
    bool isTall;
};

template<class Editor>
QWidget *makeEditor(Parameter &parameter, Node &node, QWidget *parent)
{
    return new Editor(parameter, node, parent);
}

const Kind kinds[] = {
    {Parameter::SingleColumn, makeEditor<SingleColumnFilteredParameterWidget>, false},
    {Parameter::MultipleColumns, makeEditor<MultipleColumnsParameterWidget>, true},
    {Parameter::RemoveColumns, makeEditor<MultipleColumnsParameterWidget>, true},
    {Parameter::SortColumns, makeEditor<SortColumnsParameterWidget>, true},
    {Parameter::PivotColumns, makeEditor<SortColumnsParameterWidget>, true},
    {Parameter::FilterColumns, makeEditor<FilterColumnsParameterWidget>, true},
    {Parameter::ReorderColumns, makeEditor<ReorderColumnsParameterWidget>, true},
    {Parameter::If, makeEditor<IfParameterWidget>, true},
    {Parameter::RenameColumns, makeEditor<RenameColumnsParameterWidget>, true},
    {Parameter::UniqueColumns, makeEditor<UniqueParameterWidget>, true},
    {Parameter::ReplaceTerms, makeEditor<ReplaceTermsParameterWidget>, true},
    {Parameter::SplitRows, makeEditor<SplitRowsParameterWidget>, false},
    {Parameter::Script, makeEditor<ScriptParameterWidget>, true},
    {Parameter::VerifyRules, makeEditor<VerifyRulesParameterWidget>, true},
    {Parameter::Bool, makeEditor<BoolParameterWidget>, false},
    {Parameter::Selection, makeEditor<SelectionParameterWidget>, false},
    {Parameter::Text, makeEditor<TextParameterWidget>, false},
    {Parameter::Int, makeEditor<IntParameterWidget>, false},
    {Parameter::Char, makeEditor<CharParameterWidget>, false},
    {Parameter::Real, makeEditor<RealParameterWidget>, false},
    {Parameter::LongText, makeEditor<LongTextParameterWidget>, true},
    {Parameter::Label, makeEditor<LabelParameterWidget>, false},
    {Parameter::Date, makeEditor<DateParameterWidget>, false},
    {Parameter::Locale, makeEditor<LocaleParameterWidget>, false},
};

const Kind *find(const Parameter &parameter)
{
    for (const Kind &row : kinds) {
        if (row.kind == parameter.kind()) {
            return &row;
        }
    }
    return nullptr;
}

} // namespace

QWidget *ParameterWidgets::make(Parameter &parameter, Node &node, QWidget *parent)
{
    const Kind *kind = find(parameter);
    return kind ? kind->make(parameter, node, parent) : nullptr;
}

bool ParameterWidgets::isTall(const Parameter &parameter)
{
    const Kind *kind = find(parameter);
    return kind && kind->isTall;
}
