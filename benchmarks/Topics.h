// SPDX-License-Identifier: MIT
#pragma once

/// Each function registers the cases of one topic.

/// Adding, undoing and redoing one step: alone, merging, in long histories and in large scenes.
void addStackBenchmarks();

/// Finding a field by its name, and building the command for its type.
void addFieldBenchmarks();

/// Many commands as one step.
void addMultiCommandBenchmarks();

/// Telling the application what has been done.
void addMessageBenchmarks();

/// One step while the history window shows a long history.
void addHistoryWindowBenchmarks();
