#include "outputnode/filenamecontext.h"

#include "fixedinput.h"
#include "graph/graphscene.h"
#include "support/printers.h"

#include <gtest/gtest.h>

TEST(FileNameContext, TakesTheInputsOfAScene)
{
    GraphScene scene;
    scene.setDocumentPath("/docs/d.transform");
    scene.insertNode(new FixedInput(Dataset(), "file", "/in/a.xlsx", "S"), QPointF());
    scene.insertNode(new FixedInput(Dataset(), "clip", "/in/b.csv", "", Medium::Clipboard), QPointF());
    scene.insertNode(new FixedInput(Dataset(), "", "/in/c.csv"), QPointF());
    scene.insertNode(new FixedInput(Dataset(), "folder", "/in/d", "", Medium::Folder), QPointF());
    const FileNameVariables::Context context = fileNameContext(&scene);
    EXPECT_EQ(
        FileNameVariables::expanded("{file}-{clip}-{folder}-{transformfname}", context), QString("a_S-{clip}-d-d"));
    EXPECT_EQ(fileNameContext(nullptr).sources.size(), 0);
}
