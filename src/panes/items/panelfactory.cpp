#include "panes/items/panelfactory.h"

#include "graph/notenode.h"
#include "graph/transformnode.h"
#include "inputnode/inputnode.h"
#include "outputnode/outputnode.h"
#include "panes/items/dataitemwidget.h"
#include "panes/items/inputitemwidget.h"
#include "panes/items/noteitemwidget.h"
#include "panes/items/outputitemwidget.h"
#include "panes/items/transformitemwidget.h"

#include <utility>

PanelFactory::PanelFactory()
{
    add(ItemType::Input, [](Node &node) { return new InputItemWidget(static_cast<InputNode &>(node)); });
    add(ItemType::Output, [](Node &node) { return new OutputItemWidget(static_cast<OutputNode &>(node)); });
    add(ItemType::Transform, [](Node &node) { return new TransformItemWidget(static_cast<TransformNode &>(node)); });
    add(ItemType::Note, [](Node &node) { return new NoteItemWidget(static_cast<NoteNode &>(node)); });
}

PanelFactory &PanelFactory::instance()
{
    static PanelFactory factory;
    return factory;
}

void PanelFactory::add(int kind, Maker maker)
{
    m_makers.insert(kind, std::move(maker));
}

ItemWidget *PanelFactory::make(Node &node) const
{
    const Maker maker = m_makers.value(node.type());
    return maker ? maker(node) : static_cast<ItemWidget *>(new DataItemWidget(node));
}
