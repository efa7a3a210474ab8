// SPDX-License-Identifier: MIT
#include "databases/mdb/reader/Isolamento.h"

#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <csignal>

#include "data/ObjetoDeC.h"

namespace tarvo::mdb {

namespace {

constexpr rlim_t Mega = 1024UL * 1024;

// Sanitizers reserve more memory than any limit, and look at the signal stack before a jump.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool Instrumentado = true;
#else
constexpr bool Instrumentado = false;
#endif

bool Limitar(__rlimit_resource recurso, rlim_t valor) {
    const rlimit limite{valor, valor};
    return setrlimit(recurso, &limite) == 0;
}

bool LimitarRecursos(std::size_t bytes) {
    // A text is held twice, and one of a code page grows to three times its bytes as UTF-8.
    const bool memoria = Instrumentado || Limitar(RLIMIT_AS, bytes * 5 + 128 * Mega);
    // A megabyte takes less than a tenth of a second.
    return memoria && Limitar(RLIMIT_CPU, 5 + bytes / Mega) && Limitar(RLIMIT_CORE, 0) &&
           Limitar(RLIMIT_FSIZE, 0) && Limitar(RLIMIT_NOFILE, 0);
}

using Filtro = ObjetoDeC<seccomp_release>;

bool Permitir(const Filtro& filtro, int chamada, std::initializer_list<scmp_arg_cmp> condicoes) {
    return seccomp_rule_add_array(filtro.get(), SCMP_ACT_ALLOW, chamada,
                                  static_cast<unsigned>(condicoes.size()), condicoes.begin()) == 0;
}

bool Filtrar() {
    const Filtro filtro(seccomp_init(SCMP_ACT_KILL_PROCESS));
    if (!filtro) {
        return false;
    }
    constexpr std::array Livres{
        SCMP_SYS(brk),          SCMP_SYS(munmap),      SCMP_SYS(mremap),       SCMP_SYS(madvise),
        SCMP_SYS(futex),        SCMP_SYS(exit),        SCMP_SYS(exit_group),   SCMP_SYS(getrandom),
        SCMP_SYS(rt_sigreturn), SCMP_SYS(sched_yield), SCMP_SYS(clock_gettime)};
    for (const int chamada : Livres) {
        if (!Permitir(filtro, chamada, {})) {
            return false;
        }
    }
    if (Instrumentado && !Permitir(filtro, SCMP_SYS(sigaltstack), {})) {
        return false;
    }
    const scmp_arg_cmp semCodigo{2, SCMP_CMP_MASKED_EQ, PROT_EXEC, 0};
    const scmp_arg_cmp semArquivo{3, SCMP_CMP_MASKED_EQ, MAP_ANONYMOUS, MAP_ANONYMOUS};
    return Permitir(filtro, SCMP_SYS(mmap), {semCodigo, semArquivo}) &&
           Permitir(filtro, SCMP_SYS(mprotect), {semCodigo}) &&
           Permitir(filtro, SCMP_SYS(write), {{0, SCMP_CMP_EQ, STDOUT_FILENO, 0}}) &&
           Permitir(filtro, SCMP_SYS(write), {{0, SCMP_CMP_EQ, STDERR_FILENO, 0}}) &&
           seccomp_load(filtro.get()) == 0;
}

}  // namespace

bool Isolar(std::size_t bytesDoArquivo) {
    return prctl(PR_SET_PDEATHSIG, SIGKILL) == 0 && prctl(PR_SET_DUMPABLE, 0) == 0 &&
           prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && LimitarRecursos(bytesDoArquivo) &&
           Filtrar();
}

}  // namespace tarvo::mdb
