// SPDX-License-Identifier: MIT
// VARNOCK_PUBLIC marks the namespace blocks of the public headers: what they
// declare is what libvarnock.so exports. Everything else the library holds
// (its layers, its providers, the templates it instantiates) stays inside it,
// so that a program can only come to depend on what these headers promise.
#pragma once

#if defined(__GNUC__) && !defined(_WIN32)
#define VARNOCK_PUBLIC [[gnu::visibility("default")]]
#else
#define VARNOCK_PUBLIC
#endif
