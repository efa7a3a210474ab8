// SPDX-License-Identifier: MIT
#pragma once

// Marks what the installed libraries offer to hosts: every class with operations, every function
// and every object of an installed header. Everything else stays inside the libraries.
#define TARVO_PUBLICO __attribute__((visibility("default")))
