// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

// The address of a declaration database on a server, as libpq's connection URIs are.
namespace tarvo::postgresql {

// True for what begins as they do: "postgresql://", "postgres://".
bool EhEndereco(std::string_view banco);

// Whether a password stands in the address, where everybody may read it. What cannot be understood
// counts as one wherever it might.
bool TemSenha(const std::string& endereco);

// The address as it may be shown: server, port and database, with the user, and nothing else. Error
// 5 for an address that cannot be understood; its text repeats no part that may be a password.
std::string Mostrado(const std::string& endereco);

}  // namespace tarvo::postgresql
