#pragma once

#include "files/medium.h"
#include "graph/node.h"
#include "settings/filetypes.h"

/// What inputs and outputs share: where the data lies and in what form.
class IONode : public Node
{
    Q_OBJECT

public:
    explicit IONode(int id = -1);

    /// A value of Medium.
    int medium() const { return m_medium; }
    void setMedium(int medium) { m_medium = medium; }
    /// A value of FileType.
    int fileType() const { return m_fileType; }
    void setFileType(int type) { m_fileType = type; }
    const QString &path() const { return m_path; }
    const QString &sheetName() const { return m_sheetName; }
    /// As entered; inputs drop what they have read.
    virtual void setPath(const QString &path, const QString &sheet);
    /// A value of DelimiterKind.
    int delimiterKind() const { return m_delimiterKind; }
    void setDelimiterKind(int kind) { m_delimiterKind = kind; }
    QChar customDelimiter() const { return m_customDelimiter; }
    void setCustomDelimiter(QChar c) { m_customDelimiter = c; }
    const QString &encoding() const { return m_encoding; }
    void setEncoding(const QString &name) { m_encoding = name; }

    QVariantList summaryRow() const override;

protected:
    /// Adds a heading and a line for each header name that occurs more than once, in alphabetical order.
    void warnOfDuplicateHeaderNames();

    int m_medium = Medium::File;
    int m_fileType = FileType::Delimited;
    QString m_path;
    QString m_sheetName;
    int m_delimiterKind = 0;
    QChar m_customDelimiter;
    QString m_encoding;
};
