#pragma once

#include <QString>
#include <QStringList>

/// What a run tells a person: warnings, infos and one line of result.
class RunMessages
{
public:
    const QStringList &warnings() const { return m_warnings; }
    const QStringList &infos() const { return m_infos; }
    const QString &resultText() const { return m_resultText; }
    void clearMessages()
    {
        m_warnings.clear();
        m_infos.clear();
        m_resultText.clear();
    }

protected:
    ~RunMessages() = default;
    void addWarning(const QString &text) { m_warnings.append(text); }
    void addInfo(const QString &text) { m_infos.append(text); }
    void setResultText(const QString &text) { m_resultText = text; }
    QStringList &warningList() { return m_warnings; }
    QStringList &infoList() { return m_infos; }

private:
    QStringList m_warnings;
    QStringList m_infos;
    QString m_resultText;
};
