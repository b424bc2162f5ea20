// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/Registration.h"

#include "data/qqsfpm/QQmlSortFilterProxyModel.h"
#include "data/qqsfpm/filters/AllOfFilter.h"
#include "data/qqsfpm/filters/AnyOfFilter.h"
#include "data/qqsfpm/filters/ExpressionFilter.h"
#include "data/qqsfpm/filters/IndexFilter.h"
#include "data/qqsfpm/filters/RangeFilter.h"
#include "data/qqsfpm/filters/RegExpFilter.h"
#include "data/qqsfpm/filters/ValueFilter.h"
#include "data/qqsfpm/proxyroles/ExpressionRole.h"
#include "data/qqsfpm/proxyroles/FilterRole.h"
#include "data/qqsfpm/proxyroles/JoinRole.h"
#include "data/qqsfpm/proxyroles/RegExpRole.h"
#include "data/qqsfpm/proxyroles/SwitchRole.h"
#include "data/qqsfpm/sorters/ExpressionSorter.h"
#include "data/qqsfpm/sorters/FilterSorter.h"
#include "data/qqsfpm/sorters/StringSorter.h"

#include <QQmlEngine>

namespace qqsfpm {

namespace {

const char moduleUri[] = "SortFilterProxyModel";
const int majorVersion = 0;
const int minorVersion = 2;

template <typename Type>
void registerType(const char *name)
{
    qmlRegisterType<Type>(moduleUri, majorVersion, minorVersion, name);
}

template <typename Type>
void registerBase(const char *name)
{
    qmlRegisterUncreatableType<Type>(moduleUri, majorVersion, minorVersion, name,
                                     QStringLiteral("%1 is an abstract class").arg(QLatin1String(name)));
}

} // namespace

void registerTypes()
{
    registerQQmlSortFilterProxyModelTypes();
    registerFiltersTypes();
    registerSorterTypes();
    registerProxyRoleTypes();
}

void registerQQmlSortFilterProxyModelTypes()
{
    // Without it a document can't write a model right at `sourceModel`.
    qmlRegisterAnonymousType<QAbstractItemModel>(moduleUri, majorVersion);
    registerType<QQmlSortFilterProxyModel>("SortFilterProxyModel");
}

void registerFiltersTypes()
{
    registerBase<Filter>("Filter");
    registerBase<RoleFilter>("RoleFilter");
    registerBase<FilterContainerFilter>("FilterContainerFilter");
    registerType<ValueFilter>("ValueFilter");
    registerType<IndexFilter>("IndexFilter");
    registerType<RegExpFilter>("RegExpFilter");
    registerType<RangeFilter>("RangeFilter");
    registerType<ExpressionFilter>("ExpressionFilter");
    registerType<AnyOfFilter>("AnyOf");
    registerType<AllOfFilter>("AllOf");
}

void registerSorterTypes()
{
    registerBase<Sorter>("Sorter");
    registerType<RoleSorter>("RoleSorter");
    registerType<StringSorter>("StringSorter");
    registerType<ExpressionSorter>("ExpressionSorter");
    registerType<FilterSorter>("FilterSorter");
}

void registerProxyRoleTypes()
{
    registerBase<ProxyRole>("ProxyRole");
    registerBase<SingleRole>("SingleRole");
    registerType<JoinRole>("JoinRole");
    registerType<SwitchRole>("SwitchRole");
    registerType<ExpressionRole>("ExpressionRole");
    registerType<RegExpRole>("RegExpRole");
    registerType<FilterRole>("FilterRole");
}

} // namespace qqsfpm
