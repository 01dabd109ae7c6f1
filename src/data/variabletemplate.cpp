#include "data/variabletemplate.h"

#include "data/dataset.h"
#include "data/longtext.h"

#include <algorithm>
#include <cstring>

namespace {

const QLatin1String opening("$(");

QByteArray storedForm(const QString &text)
{
    QByteArray bytes;
    TextCoding::appendEncoded(bytes, text.constData(), text.size());
    return bytes;
}

/// True when a text behind this one could complete a variable that begins in it.
bool canBeginVariable(const char *bytes, int size)
{
    const char *const end = bytes + size;
    for (const char *p = bytes; p < end; ++p) {
        p = static_cast<const char *>(std::memchr(p, '$', static_cast<size_t>(end - p)));
        if (!p) {
            return false;
        }
        if (p + 1 == end || p[1] == '(') {
            return true;
        }
    }
    return false;
}

} // namespace

VariableTemplate::VariableTemplate(const Dataset &dataset, const QString &text)
    : VariableTemplate(
        text.contains(opening) ? dataset.columnVariables() : QHash<QString, ColumnIndex>(), dataset.columnCount(), text)
{
}

VariableTemplate::VariableTemplate(const QHash<QString, ColumnIndex> &variables, int columnCount, const QString &text)
    : m_text(text)
    , m_tail(storedForm(text))
{
    if (!text.contains(opening)) {
        return;
    }
    for (auto i = variables.cbegin(); i != variables.cend(); ++i) {
        if (i->isValid() && i->toInt() < columnCount) {
            m_variables.append({opening + i.key().trimmed() + QLatin1Char(')'), *i, i.key().size()});
        }
    }
    std::sort(m_variables.begin(), m_variables.end(), [](const Variable &a, const Variable &b) {
        return a.nameSize != b.nameSize ? a.nameSize > b.nameSize : a.token < b.token;
    });
    split();
}

VariableTemplate VariableTemplate::inOrder(const QVector<QPair<QString, ColumnIndex>> &tokens, const QString &text)
{
    VariableTemplate result;
    result.m_text = text;
    for (const auto &token : tokens) {
        result.m_variables.append({token.first, token.second, token.first.size()});
    }
    result.split();
    return result;
}

void VariableTemplate::split()
{
    // Replaces the variables in turn, as replaceInTurn() does, but in the text between those that were found before.
    QVector<Part> parts{{m_text, ColumnIndex()}};
    for (const Variable &variable : qAsConst(m_variables)) {
        QVector<Part> next;
        for (const Part &part : qAsConst(parts)) {
            const QStringList texts = part.column.isValid() ? QStringList() : part.text.split(variable.token);
            for (int i = 0; i < texts.size(); ++i) {
                if (i > 0) {
                    next.append({QString(), variable.column});
                }
                next.append({texts.at(i), ColumnIndex()});
            }
            if (part.column.isValid()) {
                next.append(part);
            }
        }
        parts = next;
    }
    m_tail.clear();
    for (const Part &part : qAsConst(parts)) {
        if (part.column.isValid()) {
            m_sequential = m_sequential || canBeginVariable(m_tail.constData(), m_tail.size());
            m_pieces.append({m_tail, part.column});
            m_tail.clear();
        } else {
            m_tail += storedForm(part.text);
        }
    }
}

bool VariableTemplate::writeDirectly(const Dataset &dataset, RowIndex row, TextBuffer &out) const
{
    out.resize(0);
    for (const Piece &piece : m_pieces) {
        const Cell &value = dataset.cell(row, piece.column);
        if (canBeginVariable(value.bytes(), value.size())) {
            return false; // a value may hold a variable that is still to be replaced
        }
        LongText::append(out, piece.literal.constData(), piece.literal.size());
        LongText::append(out, value.bytes(), value.size());
    }
    LongText::append(out, m_tail.constData(), m_tail.size());
    return true;
}

QString VariableTemplate::replaceInTurn(const Dataset &dataset, RowIndex row) const
{
    QString result = m_text;
    for (const Variable &variable : m_variables) {
        if (result.contains(variable.token)) {
            LongText::replace(result, variable.token, dataset.value(row, variable.column), Qt::CaseSensitive);
        }
    }
    return result;
}

QString VariableTemplate::text(const Dataset &dataset, RowIndex row) const
{
    if (isConstant()) {
        return m_text;
    }
    TextBuffer buffer;
    return !m_sequential && writeDirectly(dataset, row, buffer) ? TextCoding::decode(buffer.constData(), buffer.size())
                                                                : replaceInTurn(dataset, row);
}

void VariableTemplate::write(const Dataset &dataset, RowIndex row, TextBuffer &out) const
{
    if (m_sequential || !writeDirectly(dataset, row, out)) {
        setText(out, replaceInTurn(dataset, row));
    }
}
