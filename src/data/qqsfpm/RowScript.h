// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>
#include <QQmlContext>
#include <QQmlExpression>
#include <QQmlScriptString>
#include <QSet>
#include <QVariant>
#include <memory>
#include <vector>

namespace qqsfpm {

class QQmlSortFilterProxyModel;
class RowReader;

// The script of a filter, sorter or role: evaluates it for one or two source rows, which it sees under given names, and
// tells when something else that it has read changes. Owned by the object that has the script as property.
class RowScript : public QObject
{
    Q_OBJECT

public:
    RowScript(const QStringList &rowNames, QObject *parent);
    ~RowScript() override;

    const QQmlScriptString &script() const { return m_script; }
    // False: it is the script already.
    bool setScript(const QQmlScriptString &script);
    bool isEmpty() const { return m_script.isEmpty(); }

    // One index for each row name. An error is logged and gives an invalid value.
    QVariant evaluate(const std::vector<QModelIndex> &sourceIndexes, const QQmlSortFilterProxyModel &proxyModel);
    // False also for an error, and for a value that is none of true and false.
    bool evaluateBoolExpression(const std::vector<QModelIndex> &sourceIndexes,
                                const QQmlSortFilterProxyModel &proxyModel);

    // Whether an evaluation has asked for the number of a row.
    bool readsPosition() const;

signals:
    void dependenciesChanged();

private:
    using Expression = std::unique_ptr<QQmlExpression>;

    struct Result
    {
        QVariant value;
        QString sourceFile;
        int line = 0;
        int column = 0;
        bool isFaulty = true;
    };

    Result run(const std::vector<QModelIndex> &sourceIndexes, const QQmlSortFilterProxyModel &proxyModel);
    bool prepare(const QQmlSortFilterProxyModel &proxyModel);
    void makeRows(const QQmlSortFilterProxyModel &proxyModel);
    Expression makeExpression();
    void keep(Expression expression, uint path);
    void dropExpressions();
    void onExpressionChanged(int epoch);
    void warn(const QString &fault, const QString &text);

    const QStringList m_rowNames;
    std::vector<RowReader *> m_readers; // one for each row name, children

    QQmlScriptString m_script;
    QPointer<QQmlContext> m_scriptContext; // where the script was written
    std::unique_ptr<QQmlContext> m_context; // the same and the rows
    quint64 m_roleGeneration = 0; // of the rows

    Expression m_current;
    std::vector<Expression> m_kept;
    QSet<uint> m_paths;
    int m_epoch = 0; // expressions of an older one are not listened to
    bool m_isStale = false; // a dependency has changed since the latest evaluation
    bool m_isTold = false;

    QString m_lastFault;
};

} // namespace qqsfpm
