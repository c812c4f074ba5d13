// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// Namespace, version and compile-time settings. Every other header includes this one first.

#define OSG osg

/// Opens the namespace with default visibility: templates that hold static data (field types above all) must
/// exist once per process, also when a client library hides its symbols.
#define OSG_BEGIN_NAMESPACE                              \
    namespace osg __attribute__((visibility("default"))) \
    {
#define OSG_END_NAMESPACE }
#define OSG_USING_NAMESPACE using namespace osg;

#define OSG_MAJOR_VERSION 1
#define OSG_MINOR_VERSION 8
#define OSG_RELEASE_VERSION 0

/// Copies that every container has, one per aspect.
#define OSG_NUM_ASPECTS 2
