// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "RowsModel.h"
#include "data/qqsfpm/QQmlSortFilterProxyModel.h"
#include "data/qqsfpm/Registration.h"
#include "support/TestBase.h"

#include <QAbstractItemModelTester>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
#include <memory>

using Proxy = qqsfpm::QQmlSortFilterProxyModel;

// A model of names and numbers, most of the tests' source.
inline QVector<RowsModel::Row> peopleRows()
{
    return {{{"name", "carol"}, {"age", 30}, {"town", "Omsk"}},
            {{"name", "alice"}, {"age", 25}, {"town", "Perm"}},
            {{"name", "Bob"}, {"age", 30}, {"town", "Perm"}},
            {{"name", "dave"}, {"age", 41}, {"town", "Omsk"}},
            {{"name", "eve"}, {"age", 25}, {"town", "Tver"}}};
}

class PeopleModel : public RowsModel
{
public:
    PeopleModel()
        : RowsModel({"name", "age", "town"}, peopleRows())
    {}
};

// What of a role a model shows, row by row, parted by blanks.
inline QString shown(const QAbstractItemModel &model, const QByteArray &role = "name")
{
    const int number = model.roleNames().key(role, -1);
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts << model.index(row, 0).data(number).toString();
    return texts.join(' ');
}

// Counts layoutChanged(), whose arguments QSignalSpy doesn't know.
class LayoutSpy : public QObject
{
public:
    explicit LayoutSpy(const QAbstractItemModel &model)
    {
        connect(&model, &QAbstractItemModel::layoutChanged, this, [this] { ++m_count; });
    }
    int count() const { return m_count; }

private:
    int m_count = 0;
};

// A QML document of the module over a source known as `people`, and the proxy in it: the root or its property "proxy".
class QmlProxy
{
public:
    explicit QmlProxy(const QByteArray &body, QAbstractItemModel *people)
    {
        qqsfpm::registerTypes();
        engine = std::make_unique<QQmlEngine>();
        engine->rootContext()->setContextProperty("people", people);
        QQmlComponent component(engine.get());
        component.setData("import QtQml 2.12\nimport QtQml.Models 2.12\nimport SortFilterProxyModel 0.2\n" + body,
                          QUrl("test.qml"));
        if (component.isError()) {
            qWarning() << component.errors();
            return;
        }
        root.reset(component.create());
        proxy = qobject_cast<Proxy *>(root.get());
        if (!proxy)
            proxy = root->property("proxy").value<Proxy *>();
    }

    template <typename T = QObject>
    T *child(const char *property) const
    {
        return qobject_cast<T *>(root->property(property).value<QObject *>());
    }

    // Evaluates a script in the document.
    QVariant run(const QString &script) const
    {
        QQmlExpression expression(qmlContext(root.get()), root.get(), script);
        const QVariant value = expression.evaluate();
        if (expression.hasError())
            qWarning() << expression.error();
        return value;
    }

    std::unique_ptr<QQmlEngine> engine;
    std::unique_ptr<QObject> root;
    Proxy *proxy = nullptr;
};
