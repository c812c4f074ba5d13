// SPDX-License-Identifier: MIT
#include <editor/script/ksScriptPrelude.h>

const char *const ksScriptPrelude = R"js((function(write, goOn, goOnSetting) {
"use strict";

// The objects made here are asked by this for what they stand for. They leave it in asked, since proxies of
// scripts may learn the key. The engine's own weak maps crash once it has collected their keys.
var ask = Symbol("ask");
var asked;

// What was told of last.
var last = {};
var OwnError = Error;
var mostElements = 1000000;
var deepest = 4;

// What a function of the script that a step called has thrown.
var failure;

// What is nested without end must not fill the stack, which only calls within each other are safe from.
["join", "toString", "toLocaleString"].forEach(function(name) {
    var own = Array.prototype[name];
    Object.defineProperty(Array.prototype, name, {
        value: function() { return own.apply(this, arguments); }, writable: true, configurable: true
    });
});
var stringify = JSON.stringify;
JSON.stringify = function(value, replacer, space) {
    var names = Array.isArray(replacer) ? replacer.map(String) : undefined;
    var indent = typeof space === "number" ? "          ".slice(0, Math.max(0, space)) : String(space || "");
    var open = [];
    function list(brackets, entries, margin) {
        if (entries.length === 0)
            return brackets;
        var gap = indent ? "\n" + margin : "";
        return brackets[0] + (indent ? gap + indent : "") + entries.join("," + (indent ? gap + indent : "")) +
            gap + brackets[1];
    }
    function write(holder, key, margin) {
        var member = holder[key];
        if (isObject(member) && typeof member.toJSON === "function")
            member = member.toJSON(key);
        if (typeof replacer === "function")
            member = replacer.call(holder, key, member);
        if (!isObject(member) || member instanceof String || member instanceof Number || member instanceof Boolean)
            return stringify(member);
        if (open.indexOf(member) >= 0)
            throw new TypeError("Cannot convert circular structure to JSON");
        open.push(member);
        var entries = [];
        if (Array.isArray(member)) {
            for (var i = 0; i < member.length; ++i)
                entries.push(write(member, String(i), margin + indent) || "null");
        } else {
            (names || Object.keys(member)).forEach(function(name) {
                var text = has(member, name) ? write(member, name, margin + indent) : undefined;
                if (text !== undefined)
                    entries.push(stringify(name) + (indent ? ": " : ":") + text);
            });
        }
        open.pop();
        return list(Array.isArray(member) ? "[]" : "{}", entries, margin);
    }
    return write({ "": value }, "", "");
};

function has(object, key) {
    return Object.prototype.hasOwnProperty.call(object, key);
}

function isObject(value) {
    return typeof value === "object" && value !== null;
}

function targetOf(value) {
    asked = undefined;
    if (isObject(value))
        value[ask];
    var target = asked;
    asked = undefined;
    return target;
}

function show(value) {
    if (typeof value === "string")
        return "'" + (value.length > 60 ? value.slice(0, 57) + "..." : value) + "'";
    if (typeof value === "function")
        return "a function";
    if (typeof value === "symbol")
        return "a symbol";
    if (Array.isArray(value))
        return "an array";
    if (!isObject(value))
        return String(value);
    return targetOf(value) ? String(value) : "an object";
}

function pass(value, depth) {
    if (typeof value === "symbol")
        throw new TypeError("a symbol is no value");
    if (!isObject(value))
        return value;
    var target = targetOf(value);
    if (target)
        return target.native;
    if (depth === 0)
        throw new RangeError("arrays are nested too deep");
    var copy;
    if (Array.isArray(value)) {
        var length = value.length;
        if (length > mostElements)
            throw new RangeError("an array has more than " + mostElements + " elements");
        copy = [];
        for (var i = 0; i < length; ++i)
            copy.push(pass(value[i], depth - 1));
        return copy;
    }
    copy = {};
    Object.keys(value).forEach(function(key) { copy[key] = pass(value[key], depth - 1); });
    return copy;
}

var kinds = {
    text: { what: "a text", fits: function(value) { return typeof value === "string"; }, none: "" },
    flag: { what: "true or false", fits: function(value) { return typeof value === "boolean"; }, none: false },
    index: {
        what: "a whole number",
        fits: function(value) {
            return typeof value === "number" && Math.floor(value) === value && Math.abs(value) < 2147483648;
        },
        none: -1
    }
};

function check(place, name, type, value) {
    var kind = kinds[type];
    if (kind !== undefined && !kind.fits(value))
        throw new TypeError(place + ": '" + name + "' is " + kind.what + ", not " + show(value));
    if (type === "text" && value.indexOf("\0") >= 0)
        throw new TypeError(place + ": '" + name + "' has a NUL character");
}

function countOf(member) {
    var most = member.parameters.length;
    var counts = member.least === most ? most : member.least + " to " + most;
    return counts + (most === 1 ? " argument" : " arguments");
}

// Calls into C++, whose errors have no place; that of a function of the script is told as it is.
function attempt(work) {
    try {
        return work();
    } catch (error) {
        var own = failure;
        failure = undefined;
        throw own === undefined ? error : own;
    }
}

function makeMethod(target, member) {
    var call = member.call || function() {
        return target.native[member.name].apply(target.native, arguments);
    };
    return function() {
        goOn();
        var given = arguments.length;
        while (given > member.least && arguments[given - 1] === undefined)
            --given;
        if (given < member.least || (given > member.parameters.length && !member.isVariadic))
            throw new TypeError(member.signature + " takes " + countOf(member) + ", not " + given);
        var values = [];
        for (var i = 0; i < given; ++i) {
            var parameter = member.parameters[i];
            var value = arguments[i];
            if (parameter !== undefined) {
                var kind = kinds[parameter.type];
                if (value === undefined && i >= member.least && kind !== undefined)
                    value = kind.none;
                check(member.name, parameter.name, parameter.type, value);
            }
            values.push(member.call ? value : pass(value, deepest));
        }
        return attempt(function() { return call.apply(target.native, values); });
    };
}

function describe(target) {
    var name = target.type.name;
    return target.native.label !== undefined ? target.native.label()
                                             : name.charAt(0).toLowerCase() + name.slice(1);
}

function distance(left, right) {
    var row = [];
    for (var j = 0; j <= right.length; ++j)
        row.push(j);
    for (var i = 1; i <= left.length; ++i) {
        var corner = row[0];
        row[0] = i;
        for (j = 1; j <= right.length; ++j) {
            var above = row[j];
            row[j] = left[i - 1] === right[j - 1] ? corner : 1 + Math.min(corner, above, row[j - 1]);
            corner = above;
        }
    }
    return row[right.length];
}

function refuseUnknown(target, key) {
    var nearest = "", least = 3;
    Object.keys(target.type.members).concat(target.type.parts).forEach(function(name) {
        var far = distance(name.toLowerCase(), key.toLowerCase());
        if (far < least) {
            least = far;
            nearest = name;
        }
    });
    throw new TypeError(describe(target) + " has no property '" + key + "'" +
                        (nearest ? "; did you mean '" + nearest + "'?" : ""));
}

function isMember(target, key) {
    return typeof key === "string" && (has(target.type.members, key) || has(target.parts, key));
}

function read(target, key) {
    if (has(target.parts, key))
        return target.parts[key];
    var member = target.type.members[key];
    if (member.isProperty) {
        var value = target.native[key];
        return member.type === "texts" ? Array.prototype.slice.call(value) : value;
    }
    if (!has(target.methods, key))
        target.methods[key] = makeMethod(target, member);
    return target.methods[key];
}

function isWritable(target, key) {
    return has(target.type.members, key) && target.type.members[key].isWritable;
}

var handler = {
    get: function(target, key) {
        if (key === ask)
            asked = target;
        if (typeof key === "symbol")
            return undefined;
        if (isMember(target, key))
            return read(target, key);
        if (key === "toString" || key === "toJSON")
            return function() { return describe(target); };
        if (key in Object.prototype)
            return Object.prototype[key];
        refuseUnknown(target, key);
    },
    set: function(target, key, value) {
        goOnSetting();
        if (!isMember(target, key))
            refuseUnknown(target, String(key));
        if (!isWritable(target, key))
            throw new TypeError('Cannot assign to read-only property "' + key + '"');
        check(describe(target), key, target.type.members[key].type, value);
        var passed = pass(value, deepest);
        attempt(function() { target.native[key] = passed; });
        return true;
    },
    has: function(target, key) {
        return isMember(target, key);
    },
    // The engine would compare others with what the target has, which is not for scripts.
    ownKeys: function() {
        return [];
    },
    getOwnPropertyDescriptor: function() {
        return undefined;
    },
    defineProperty: function(target, key) {
        throw new TypeError("the properties of " + describe(target) + " cannot be redefined");
    },
    deleteProperty: function(target, key) {
        throw new TypeError("the properties of " + describe(target) + " cannot be deleted");
    },
    preventExtensions: function(target) {
        throw new TypeError(describe(target) + " cannot be frozen");
    }
};

function line(member) {
    return "  " + member.signature + "\n      " + member.about;
}

function helpOnType(type) {
    return Object.keys(type.members).map(function(name) { return line(type.members[name]); })
        .concat(type.parts.map(function(name) { return "  " + name + "\n      see help('" + name + "')"; }));
}

function enclose(body, close) {
    var isDone = false;
    try {
        var result = body();
        isDone = true;
        return result;
    } finally {
        close(isDone);
    }
}

function text(values) {
    return Array.prototype.map.call(values, String).join(" ");
}

// What read returns; it may be code of the script, which may throw.
function attemptTo(read, otherwise) {
    try {
        return read();
    } catch (thrown) {
        return otherwise;
    }
}

function tell(thrown) {
    var isError = attemptTo(function() { return thrown instanceof OwnError; }, false);
    var error = isError ? thrown
                        : new OwnError("uncaught " + attemptTo(function() { return String(thrown); }, "object"));
    function textOf(key) {
        return attemptTo(function() { return error[key] === undefined ? "" : String(error[key]); }, "");
    }
    last = { error: error, stack: textOf("stack") || (last.error === error ? last.stack : new OwnError().stack) };
    return {
        error: error,
        text: attemptTo(function() { return String(error); }, "uncaught error"),
        message: textOf("message"),
        stack: last.stack,
        fileName: textOf("fileName"),
        lineNumber: textOf("lineNumber")
    };
}

return {
    makeType: function(name, members, parts) {
        var type = { name: name, members: Object.create(null), parts: parts };
        members.forEach(function(member) { type.members[member.name] = member; });
        return type;
    },
    wrap: function(native, type, parts) {
        var target = {};
        var content = { native: native, type: type, parts: parts, methods: {} };
        Object.keys(content).forEach(function(key) {
            Object.defineProperty(target, key, { value: content[key], configurable: true });
        });
        return new Proxy(target, handler);
    },
    addMacro: function(type) {
        type.members.macro.call = function(title, body) {
            if (typeof body !== "function")
                throw new TypeError("macro: 'body' is a function, not " + show(body));
            this.openMacro(title);
            return enclose(body, this.closeMacro);
        };
        type.members.batch.call = function(title, edits, merging, action) {
            if (typeof edits !== "function")
                return this.batch(title, pass(edits, deepest), merging === true, action);
            this.openBatch(title, merging === true, action);
            return enclose(edits, this.closeBatch);
        };
        type.members.macro.parameters[0].type = "text";
    },
    addConsole: function(type) {
        ["log", "info"].forEach(function(name) {
            type.members[name].call = function() { this.write(text(arguments)); };
        });
        ["warn", "error"].forEach(function(name) {
            type.members[name].call = function() { this.complain(text(arguments)); };
        });
    },
    setGlobals: function(global, globals, types) {
        global.print = function() { write(text(arguments)); };
        global.help = function(what) {
            if (what === undefined) {
                write("Objects: " + globals.join(", ") + "\nFunctions: print, help\n" +
                      "help(object) and help('name') tell more, of the classes " +
                      types.map(function(type) { return type.name; }).join(", ") + " too.");
                return;
            }
            var found = [];
            var target = targetOf(what);
            if (target)
                found = helpOnType(target.type);
            else
                types.forEach(function(type) {
                    if (type.name.toLowerCase() === String(what).toLowerCase())
                        found = found.concat(helpOnType(type));
                    else if (has(type.members, what))
                        found.push(type.name + "\n" + line(type.members[what]));
                });
            if (found.length === 0)
                throw new Error("there is no help on " + show(what));
            write(found.join("\n"));
        };
        globals.concat("print", "help").forEach(function(name) {
            var own = global[name];
            Object.defineProperty(global, name, {
                configurable: false,
                get: function() { return own; },
                set: function() { throw new TypeError("'" + name + "' cannot be replaced"); }
            });
        });
    },
    fail: function(error) { failure = error; },
    run: function(script) {
        try {
            script();
        } catch (thrown) {
            return tell(thrown);
        }
    },
    tell: tell
};
}))js";
