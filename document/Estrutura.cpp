#include "document/Estrutura.h"

#include "document/DocumentoRelatorio.h"

namespace tarvo {

Trecho::Trecho(DocumentoRelatorio& documento, const Elemento& elemento)
    : documento_(documento), indice_(documento.aberto_), anterior_(documento.aberto_) {
    if (anterior_ != Estrutura::Decoracao) {
        auto& elementos = documento.conteudo_.estrutura.elementos;
        indice_ = static_cast<std::uint32_t>(elementos.size());
        elementos.push_back(elemento);
        elementos.back().pai = anterior_;
        documento.aberto_ = indice_;
    }
}

Trecho::Trecho(DocumentoRelatorio& documento, std::uint32_t elemento)
    : documento_(documento),
      indice_(documento.aberto_ == Estrutura::Decoracao ? Estrutura::Decoracao : elemento),
      anterior_(documento.aberto_) {
    documento.aberto_ = indice_;
}

Trecho::~Trecho() {
    documento_.aberto_ = anterior_;
}

}  // namespace tarvo
