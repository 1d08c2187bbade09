// SPDX-License-Identifier: MIT
// VARNOCK_PUBLIC_BEGIN and VARNOCK_PUBLIC_END enclose the declarations of the
// public headers: what they declare is what libvarnock.so exports.
// Everything else the library holds (its layers, its providers, the
// templates it instantiates) stays inside it, so that a program can only
// come to depend on what these headers promise.
#pragma once

#if defined(__GNUC__) && !defined(_WIN32)
#define VARNOCK_PUBLIC_BEGIN _Pragma("GCC visibility push(default)")
#define VARNOCK_PUBLIC_END _Pragma("GCC visibility pop")
#else
#define VARNOCK_PUBLIC_BEGIN
#define VARNOCK_PUBLIC_END
#endif
