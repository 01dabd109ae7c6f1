#include "inputs/fixedwidthreader.h"

#include "data/dataset.h"
#include "data/values.h"
#include "inputs/fixedwidthguess.h"
#include "inputs/linescanner.h"

#include <vector>

namespace {

// A guess waits for its lines within so much text; one row can't be much longer anyway.
constexpr int guessWindow = 1 << 29;

/// Moves `at` on by `units` UTF-16 units, at most to `end`. False when that is between the halves of a character;
/// `at` then stands behind it.
bool advance(const char *&at, const char *end, int units)
{
    while (units > 0 && at < end) {
        const auto byte = static_cast<uchar>(*at);
        at += byte < 0x80 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
        units -= byte < 0xF0 ? 1 : 2;
    }
    return units >= 0;
}

} // namespace

FixedWidthReader::FixedWidthReader(const FixedWidthOptions &options, TextSource *source)
    : m_options(options)
    , m_reader(source)
{
    for (int &width : m_options.widths) {
        width = qMax(0, width);
    }
}

void FixedWidthReader::read(Dataset *dataset)
{
    if (m_options.automatic || m_options.widths.isEmpty()) {
        guessWidths();
    }
    dataset->setColumnCount(m_options.widths.size());
    RowBatch batch(m_options.rows, dataset);
    m_reader.parseRows(batch, [&](char *begin, char *end, bool last) {
        return forEachLine(begin, end, last, [&](const char *line, const char *lineEnd, bool unusual) {
            addToSample(line, lineEnd);
            if (unusual && !TextCoding::isAscii(line, static_cast<int>(lineEnd - line))) {
                cutUnits(line, lineEnd, batch);
            } else {
                cutAscii(line, lineEnd, batch);
                batch.finishRow(unusual);
            }
        });
    });
    if (m_lineCount > sampleLines) {
        m_sample.append(QStringLiteral("(+%1 more rows)").arg(formatInteger(m_lineCount - sampleLines, true)));
    }
    m_infos += batch.infos();
}

void FixedWidthReader::guessWidths()
{
    FixedWidthGuess guess;
    int seen = 0;
    m_reader.readMore(m_reader.blockSize());
    while (true) {
        const char *const rest = forEachLine(m_reader.begin() + seen, m_reader.end(), m_reader.atEnd(),
            [&](const char *line, const char *lineEnd, bool) {
                const bool ignored = m_options.rows.ignoreEmptyRows && line == lineEnd;
                if (!ignored && !guess.hasEnough()) {
                    guess.addLine(line, lineEnd);
                }
            });
        seen = static_cast<int>(rest - m_reader.begin());
        if (guess.hasEnough() || m_reader.atEnd() || m_reader.size() > guessWindow) {
            break;
        }
        m_reader.readMore(qMax(m_reader.blockSize(), m_reader.size()));
    }
    m_options.widths = guess.widths();
    const QString info = QStringLiteral("Columns=Automatic guesses %1 columns, set 'Columns' option to '%2' to change");
    m_infos.append(info.arg(formatInteger(m_options.widths.size(), true), QStringLiteral("Manual")));
}

void FixedWidthReader::cutAscii(const char *begin, const char *end, RowBatch &batch) const
{
    for (int width : m_options.widths) {
        const char *const cut = begin + qMin<qint64>(width, end - begin);
        batch.addText(begin, cut);
        begin = cut;
    }
}

/// Adds a row that isn't ASCII only. Where a cell ends between the halves of a character, each half takes more bytes
/// than it has in the line.
void FixedWidthReader::cutUnits(const char *begin, const char *end, RowBatch &batch)
{
    const char *at = begin;
    bool whole = true;
    for (int width : m_options.widths) {
        const char *const from = at;
        whole = advance(at, end, width) && whole;
        batch.addText(from, at);
    }
    if (whole) {
        batch.finishRow(true);
        return;
    }
    batch.dropUnfinishedRow();
    const QString line = TextCoding::decode(begin, static_cast<int>(end - begin));
    std::vector<int> sizes;
    m_apart.resize(0);
    int position = 0;
    for (int width : m_options.widths) {
        const int length = qMin(width, line.size() - position);
        const int before = m_apart.size();
        TextCoding::appendEncoded(m_apart, line.constData() + position, length);
        sizes.push_back(m_apart.size() - before);
        position += length;
    }
    m_apart.append(DatasetAppender::padding, '\0');
    batch.flush();
    char *text = m_apart.data();
    batch.setBuffer(text);
    for (int size : sizes) {
        batch.addText(text, text + size);
        text += size;
    }
    batch.finishRow(true);
    batch.flush();
    batch.setBuffer(m_reader.begin());
}

void FixedWidthReader::addToSample(const char *begin, const char *end)
{
    if (++m_lineCount <= sampleLines) {
        const char *cut = begin;
        advance(cut, end, sampleLineLength);
        m_sample.append(TextCoding::decode(begin, static_cast<int>(cut - begin)));
    }
}
