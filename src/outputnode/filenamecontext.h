#pragma once

#include "outputs/filenamevariables.h"

class GraphScene;

/// What the variables in the path of an output stand for: the inputs and the document of `scene`, which may be null.
FileNameVariables::Context fileNameContext(const GraphScene *scene);
