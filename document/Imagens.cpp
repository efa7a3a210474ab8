#include "document/Imagens.h"
