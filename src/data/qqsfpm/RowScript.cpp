// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/RowScript.h"

#include "data/qqsfpm/QQmlSortFilterProxyModel.h"
#include "data/qqsfpm/RowReader.h"
#include "data/qqsfpm/Variants.h"

#include <QQmlEngine>
#include <QQmlError>

namespace qqsfpm {

namespace {

// How many expressions are kept for what they listen to; see keep().
const size_t keptUnseen = 256;
const size_t keptAtMost = 512;

} // namespace

RowScript::RowScript(const QStringList &rowNames, QObject *parent)
    : QObject(parent)
    , m_rowNames(rowNames)
{
    for (int i = 0; i < rowNames.size(); ++i)
        m_readers.push_back(new RowReader(this));
}

RowScript::~RowScript() = default;

bool RowScript::setScript(const QQmlScriptString &script)
{
    if (m_script == script)
        return false;
    m_script = script;
    m_scriptContext = qmlContext(parent());
    m_lastFault.clear();
    m_roleGeneration = 0;
    dropExpressions();
    return true;
}

QVariant RowScript::evaluate(const std::vector<QModelIndex> &sourceIndexes, const QQmlSortFilterProxyModel &proxyModel)
{
    return run(sourceIndexes, proxyModel).value;
}

bool RowScript::evaluateBoolExpression(const std::vector<QModelIndex> &sourceIndexes,
                                       const QQmlSortFilterProxyModel &proxyModel)
{
    const auto result = run(sourceIndexes, proxyModel);
    if (result.isFaulty)
        return false;
    if (result.value.canConvert<bool>())
        return result.value.toBool();
    const QString text = QString::asprintf("%s:%i:%i : Can't convert result to bool", qUtf8Printable(result.sourceFile),
                                           result.line, result.column);
    warn(text, text);
    return false;
}

bool RowScript::readsPosition() const
{
    for (const auto *reader : m_readers) {
        if (reader->hasReadPosition())
            return true;
    }
    return false;
}

RowScript::Result RowScript::run(const std::vector<QModelIndex> &sourceIndexes,
                                 const QQmlSortFilterProxyModel &proxyModel)
{
    Q_ASSERT(sourceIndexes.size() == m_readers.size());
    Result result;
    if (!prepare(proxyModel))
        return result;

    // The expression is taken out while it runs: a nested evaluation makes itself another.
    Expression expression = m_current ? std::move(m_current) : makeExpression();
    const RowReader::Scope row(*m_readers.front(), sourceIndexes.front(), proxyModel);
    const RowReader::Scope otherRow(*m_readers.back(), sourceIndexes.back(), proxyModel);
    const int epoch = m_epoch;

    result.value = plainVariant(expression->evaluate());
    result.isFaulty = expression->hasError();
    if (result.isFaulty) {
        QQmlError error = expression->error();
        if (error.line() < 1) { // an error met again, of which the engine doesn't tell the place
            error.setLine(expression->lineNumber());
            error.setColumn(expression->columnNumber());
        }
        warn(error.description(), error.toString());
        result.value = QVariant();
    } else if (!result.value.canConvert<bool>()) {
        result.sourceFile = expression->sourceFile();
        result.line = expression->lineNumber();
        result.column = expression->columnNumber();
    }

    const bool isTrue = result.value.canConvert<bool>() && result.value.toBool();
    if (epoch == m_epoch)
        keep(std::move(expression), (row.trail() * 31 + otherRow.trail()) * 2 + (isTrue ? 1 : 0));
    else
        expression.release()->deleteLater();
    return result;
}

bool RowScript::prepare(const QQmlSortFilterProxyModel &proxyModel)
{
    if (!m_scriptContext || !m_scriptContext->isValid() || !m_scriptContext->engine())
        return false; // the engine is gone, and with it what the script meant
    if (m_roleGeneration != proxyModel.roleGeneration() || !m_context)
        makeRows(proxyModel);
    else if (m_isStale)
        dropExpressions();
    return true;
}

void RowScript::makeRows(const QQmlSortFilterProxyModel &proxyModel)
{
    dropExpressions();
    if (!m_context || m_context->parentContext() != m_scriptContext)
        m_context = std::make_unique<QQmlContext>(m_scriptContext.data());
    for (int i = 0; i < m_rowNames.size(); ++i) {
        const auto row = m_readers[size_t(i)]->makeRow(*m_scriptContext->engine(), proxyModel);
        m_context->setContextProperty(m_rowNames.at(i), QVariant::fromValue(row));
    }
    m_roleGeneration = proxyModel.roleGeneration();
}

RowScript::Expression RowScript::makeExpression()
{
    auto expression = std::make_unique<QQmlExpression>(m_script, m_context.get(), parent());
    expression->setNotifyOnValueChanged(true);
    connect(expression.get(), &QQmlExpression::valueChanged, this,
            [this, epoch = m_epoch] { onExpressionChanged(epoch); });
    return expression;
}

void RowScript::keep(Expression expression, uint path)
{
    // An expression listens to what its latest evaluation has read, but another row may take another way through the
    // script and read something else. So the first expressions are all kept for their listening, and later ones where
    // the roles read or the result differ from all before; the others are used again. An expression for each row would
    // listen to everything, at the price of half a kilobyte for each.
    const bool isNewPath = !m_paths.contains(path);
    if (m_kept.size() < keptUnseen || (isNewPath && m_kept.size() < keptAtMost)) {
        m_paths.insert(path);
        m_kept.push_back(std::move(expression));
    } else if (!m_current) {
        m_current = std::move(expression);
    }
}

void RowScript::dropExpressions()
{
    ++m_epoch;
    m_isStale = false;
    m_isTold = false;
    m_paths.clear();
    // Later, since one of them may be telling of its change right now.
    if (m_current)
        m_current.release()->deleteLater();
    for (auto &expression : m_kept)
        expression.release()->deleteLater();
    m_kept.clear();
}

void RowScript::onExpressionChanged(int epoch)
{
    if (epoch != m_epoch)
        return;
    m_isStale = true;
    if (m_isTold)
        return;
    // All others that listen to the same will follow: told once until the next evaluation, or the next turn if the rows
    // aren't evaluated again.
    m_isTold = true;
    QMetaObject::invokeMethod(
        this, [this] { m_isTold = false; }, Qt::QueuedConnection);
    emit dependenciesChanged();
}

void RowScript::warn(const QString &fault, const QString &text)
{
    // A faulty script fails on every row of every pass: the same fault again would only drown the log.
    if (m_lastFault == fault)
        return;
    m_lastFault = fault;
    qWarning("%s", qUtf8Printable(text));
}

} // namespace qqsfpm
