// SPDX-License-Identifier: MIT
#include "system/loading/BibliotecaSobDemanda.h"

#include <gmock/gmock.h>

#include "tests/support/Apoio.h"

namespace tarvo {
namespace {

constinit const BibliotecaSobDemanda Ausente("libtarvo-ausente.so.0", "libtarvo0", "medir marés");
constinit const BibliotecaSobDemanda Sistema("libc.so.6", "libc6", "contar");

TEST(BibliotecaSobDemanda, CallsWhatIsThereAndNamesThePackageOfWhatIsNot) {
    const FuncaoSobDemanda<Sistema, int(int)> valorAbsoluto("abs");
    const FuncaoSobDemanda<Sistema, int(int)> inexistente("tarvo_abs");
    const FuncaoSobDemanda<Ausente, int(int)> ausente("abs");
    EXPECT_EQ(valorAbsoluto(-7), 7);
    for (int vez = 0; vez < 2; ++vez) {
        const auto erro = apoio::ErroDe([&] { ausente(-7); });
        EXPECT_EQ(erro.Numero(), NumeroErro::AcaoNaoSuportada);
        EXPECT_THAT(erro.Descricao(),
                    testing::HasSubstr("Para medir marés, instale o pacote libtarvo0 "));
    }
    EXPECT_THAT(apoio::ErroDe([&] { inexistente(-7); }).Descricao(), testing::HasSubstr("libc6"));
}

}  // namespace
}  // namespace tarvo
