// SPDX-License-Identifier: MIT
#pragma once

/// What of the objects of scripts is said in JavaScript: an expression whose value is a function. It takes
/// the function that writes a line of text, and returns an object of functions:
///
/// - makeType(name, members, parts) makes a type; members is an array of objects as ksScriptMember, with
///   those of the bases first, parts an array of names;
/// - wrap(native, type, parts) makes the object that scripts see for one of Qt: it has the members of the
///   type only, checks what it is given against their descriptions, and hands on copies of arrays and
///   objects, so that no code of a script runs while C++ reads them;
/// - addMacro(type) gives the type of the history its macro() and its batch(), addConsole(type) that of the
///   console all it has;
/// - setGlobals(global, globals, types) adds the functions that belong to no object; globals are the names of
///   the global objects;
/// - fail(error) makes error what the call into C++ that is under way throws, when it throws;
/// - tell(thrown) returns an object with what there is to say of something that was thrown: error, itself if
///   it is an Error, else a new one; and texts, text, message, stack, fileName and lineNumber;
/// - run(script) calls a function; returns what tell() does of whatever it throws, else undefined.
extern const char *const ksScriptPrelude;
