// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>

class QObject;
class QWidget;

// What windows say to their users. Nothing here waits for an answer.
namespace tarvo {

class Erro;

// "erro 482: descrição"
QString TextoDoErro(const Erro& erro);

// Says something over a window; null says it over the active one.
void Dizer(QWidget* janela, const QString& texto);
// Says an error over the window that onde, an object or part of it, belongs to; once, while the
// same is still being said there. What the user has cancelled is said in the status bar alone.
// Where deNovo is given the user can have it done again.
void DizerErro(QObject* onde, const Erro& erro, const std::function<void()>& deNovo = {});
// For a few seconds, in the status bar of the window that onde is or stands in, if it has one.
void DizerDePassagem(QObject* onde, const QString& texto);

}  // namespace tarvo
