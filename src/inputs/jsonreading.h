#pragma once

#include "inputs/jsonparser.h"
#include "inputs/jsonvalues.h"
#include "inputs/treereading.h"

#include <QJsonParseError>

/// What JsonReader does: takes the text as one document or, where that can't be, as one object a line.
class JsonReading final : public TreeReading
{
public:
    JsonReading(const TreeReadOptions &options, TextSource *source);

private:
    enum Outcome { Done, Unsure, Lines };
    struct Fault
    {
        qint64 line = 0; // from 1
        int offset = 0;  // in bytes, in the line
        QString text;
    };

    void startOver() override;

    // A document
    bool readRecords() override;
    char nextCharacter();
    bool more();
    JsonParser::Status parseNext(bool topLevel);
    Outcome readObject();
    Outcome readArray();
    bool readByLibrary();
    QJsonDocument parsedRest(QJsonParseError *error);
    void addByLibrary(const QJsonValue &value, bool topLevel);
    bool isSingleValue();
    int behindToken(int offset);
    void noteFault(int offset, const QString &text);
    static QString moreFollows();

    // Lines
    static bool isLineEnd(char c) { return c == '\n' || c == '\r'; }
    bool readLines();
    bool passEmptyLine();
    bool refillLines();
    JsonParser::Status parseLine();
    bool readOddLine();
    bool failLine(const QJsonParseError &error);
    bool failAtFault();

    const bool m_longArrays;
    const bool m_plainNumbers;
    std::unique_ptr<JsonParser> m_parser;
    std::unique_ptr<JsonValues> m_values;
    TreeRecord m_record;
    int m_at = 0;        // how much of the text in the block is done
    int m_begin = 0;     // of the document in the text
    QByteArray m_before; // as good as what stands before m_at, where an array couldn't be read on
    qint64 m_line = 1;
    qint64 m_recordLines = 0;
    Fault m_fault; // where the text stops being a document
};
