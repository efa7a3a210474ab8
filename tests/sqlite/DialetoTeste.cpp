#include "tests/sqlite/BancoDeTeste.h"
