// SPDX-License-Identifier: GPL-3.0-or-later
pragma Singleton
import QtQuick 2.15

// Deep copies of values: what is done to the copy leaves the original as it is.
QtObject {
    // Lists and maps are copied with all that is in them, also where one holds itself. An object that lives for itself,
    // as items and models do, is no value: the copy refers to the same one.
    function clone(value) {
        return copy(value, [], [])
    }

    // The path is that of the originals from the outermost one to this, with the copy of each.
    function copy(value, path, copies) {
        if (value === null || typeof value !== "object")
            return value
        if (value instanceof Date)
            return new Date(value.getTime())
        var isList = value instanceof Array // also one that came from C++
        if (!isList && !isMap(value))
            return value
        var outer = path.indexOf(value)
        if (outer >= 0)
            return copies[outer]
        var result = isList ? [] : {}
        path.push(value)
        copies.push(result)
        Object.keys(value).forEach(function(key) { result[key] = copy(value[key], path, copies) })
        path.pop()
        copies.pop()
        return result
    }

    function isMap(value) {
        var prototype = Object.getPrototypeOf(value)
        return !(value instanceof QtObject) && (prototype === null || prototype === Object.prototype)
    }
}
