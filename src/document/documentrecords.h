#pragma once

#include "charts/chartoptions.h"
#include "document/batchsettings.h"
#include "document/documentrepairs.h"
#include "document/parameterrepairs.h"
#include "inputs/inputoptions.h"
#include "outputs/outputoptions.h"

#include <QColor>
#include <QPointF>
#include <QString>
#include <QVector>

/// The format that is written. Older ones are brought up to date on reading.
constexpr int currentDocumentVersion = 86;

/// What holds for a document as a whole.
struct DocumentMeta
{
    int version = currentDocumentVersion;
    QString locale; ///< a locale's name, empty for none
    bool snapToGrid = false;
    QString notes;
    QString docPath; ///< where the document lay when it was saved
    bool autoRunOn = true;
};

/// What all items of a document have. Ids are unique and not negative once a document is parsed.
struct NodeRecord
{
    int id = -1;
    QString comment;
    QPointF position;
};

struct InputRecord : NodeRecord
{
    QString name; ///< what the item shows; written for people and not read
    QString alias;
    InputOptions options;
};

struct TransformRecord : NodeRecord
{
    QString name; ///< the stored name of its kind
    QVector<ParameterRecord> parameters;
};

/// Column references are texts until the table upstream is known.
struct OutputRecord : NodeRecord
{
    QString name; ///< as in InputRecord
    QString alias;
    OutputOptions options; ///< a type of None goes by the path's extension
    QString multiFileColumn;
    QString excelFormats;
    QString jsonTypes;
};

/// Column references as in OutputRecord.
struct ChartRecord : NodeRecord
{
    QString alias;
    ChartOptions options;
    QString xColumn;
    QString yColumns;
};

struct NoteRecord : NodeRecord
{
    QColor color = Qt::white;
    int arrow = 0;
};

struct ConnectionRecord
{
    int startId = -1;
    int endId = -1;
};

/// A whole document, in the order of its elements.
struct DocumentRecords
{
    DocumentMeta meta;
    QVector<InputRecord> inputs;
    QVector<TransformRecord> transforms;
    QVector<OutputRecord> outputs;
    QVector<ChartRecord> charts;
    QVector<NoteRecord> notes;
    QVector<ConnectionRecord> connections;
    DocumentRepairs repairs; ///< what parsing left out or changed
};
