#include "outputnode/filenamecontext.h"

#include "graph/graphscene.h"
#include "graph/ionode.h"

FileNameVariables::Context fileNameContext(const GraphScene *scene)
{
    FileNameVariables::Context context;
    if (!scene) {
        return context;
    }
    context.documentPath = scene->documentPath();
    const QList<IONode *> inputs = scene->inputNodes();
    for (const IONode *input : inputs) {
        if (input->medium() != Medium::Clipboard && !input->alias().isEmpty()) {
            context.sources.append({input->alias(), input->path(), input->sheetName()});
        }
    }
    return context;
}
