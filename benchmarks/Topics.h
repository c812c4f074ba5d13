// SPDX-License-Identifier: MIT
#pragma once

/// Each function registers the cases of one topic.

/// Adding, undoing and redoing one step, and merging one.
void addStackBenchmarks();

/// Adding, undoing and redoing one step in histories and scenes of more and more steps and containers.
void addGrowthBenchmarks();

/// Adding, undoing and redoing a step of each kind that changes one value, with a listener.
void addValueBenchmarks();

/// Finding a field by its name, and building the command for its type.
void addFieldBenchmarks();

/// Many commands as one step.
void addMultiCommandBenchmarks();

/// Telling the application what has been done.
void addMessageBenchmarks();

/// Dragging a node, and moving its transform variants.
void addTransformBenchmarks();

/// Removing nodes from light link sets and bringing them back.
void addLightBenchmarks();

/// Adding a tag to a container that has many.
void addTagBenchmarks();

/// One step while the history window shows a long history.
void addHistoryWindowBenchmarks();
