// Hand-picked: what nearly every file below the canvas includes.
#include <QByteArray>
#include <QDate>
#include <QHash>
#include <QList>
#include <QLocale>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <functional>
#include <memory>
#include <vector>
