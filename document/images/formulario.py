# SPDX-License-Identifier: MIT
"""A drawing in SVG as the content of a PDF form: as much of SVG as the drawings of this folder use."""

import math
import re
import subprocess
import xml.etree.ElementTree as ET


def numero(valor, casas):
    texto = f"{valor:.{casas}f}"
    texto = texto.rstrip("0").rstrip(".") if "." in texto else texto
    return "0" if texto in ("", "-0") else re.sub(r"^(-?)0\.", r"\1.", texto)


def numeros(texto):
    return [float(n) for n in re.findall(r"-?[\d.]+", texto)]


def trechos(d):
    """A path as (operator, points): m, l, c or h. Quadratic curves become cubic ones."""
    x = y = x0 = y0 = cx = cy = 0.0
    for letra, resto in re.findall(r"([MmLlHhVvCcQqTtZz])([^A-Za-z]*)", d):
        valores, tipo = numeros(resto), letra.upper()
        passo = {"M": 2, "L": 2, "H": 1, "V": 1, "C": 6, "Q": 4, "T": 2, "Z": 1}[tipo]
        for i in range(0, max(len(valores), 1), passo):
            p = valores[i:i + passo]
            if tipo == "H":
                p = [p[0] + (x if letra == "h" else 0), y]
            elif tipo == "V":
                p = [x, p[0] + (y if letra == "v" else 0)]
            elif letra.islower():
                p = [v + (y if k % 2 else x) for k, v in enumerate(p)]
            if tipo == "Z":
                yield "h", []
                x, y = x0, y0
            elif tipo == "C":
                yield "c", p
            elif tipo in "QT":
                cx, cy = p[:2] if tipo == "Q" else (2 * x - cx, 2 * y - cy)
                fx, fy = p[-2:]
                yield "c", [x + (cx - x) * 2 / 3, y + (cy - y) * 2 / 3,
                            fx + (cx - fx) * 2 / 3, fy + (cy - fy) * 2 / 3, fx, fy]
            else:
                yield "m" if tipo == "M" and i == 0 else "l", p
                if tipo == "M" and i == 0:
                    x0, y0 = p
            if tipo != "Z":
                x, y = p[-2:]
            if tipo not in "QT":
                cx, cy = x, y


def elipse(cx, cy, rx, ry):
    k = 0.5522848
    cantos = [(1, 0), (0, 1), (-1, 0), (0, -1), (1, 0)]
    yield "m", [cx + rx, cy]
    for (a, b), (c, d) in zip(cantos, cantos[1:]):
        yield "c", [cx + rx * (a + k * c), cy + ry * (b + k * d),
                    cx + rx * (c + k * a), cy + ry * (d + k * b), cx + rx * c, cy + ry * d]
    yield "h", []


def matriz(texto):
    """A transform attribute as the six operands of cm."""
    m = (1, 0, 0, 1, 0, 0)
    for nome, valores in re.findall(r"(\w+)\(([^)]*)\)", texto):
        v = numeros(valores)
        if nome == "rotate":
            seno, cosseno = math.sin(math.radians(v[0])), math.cos(math.radians(v[0]))
            px, py = v[1:] or (0, 0)
            n = (cosseno, seno, -seno, cosseno,
                 px - cosseno * px + seno * py, py - seno * px - cosseno * py)
        else:
            n = {"matrix": v, "translate": [1, 0, 0, 1, *v], "scale": [v[0], 0, 0, v[-1], 0, 0]}[nome]
        m = (m[0] * n[0] + m[2] * n[1], m[1] * n[0] + m[3] * n[1],
             m[0] * n[2] + m[2] * n[3], m[1] * n[2] + m[3] * n[3],
             m[0] * n[4] + m[2] * n[5] + m[4], m[1] * n[4] + m[3] * n[5] + m[5])
    return m


class Formulario:
    """A source drawing as a PDF form that fills the unit square: a line of entries of its
    dictionary, then its operators, in the drawing's own coordinates. What it repeats (use) stays
    the same text below a matrix, which compresses to next to nothing."""

    HERDADAS = {"fill": "#000", "stroke": "none", "stroke-width": "1", "stroke-linejoin": "miter",
                "stroke-linecap": "butt"}

    def __init__(self, arquivo):
        texto = arquivo.read_text()
        self.svg = ET.fromstring(re.sub(r' xmlns="[^"]*"', "", texto))
        self.estilos = {seletor: dict(re.findall(r"([\w-]+): *([^;]+);", corpo)) for seletor, corpo
                        in re.findall(r"([.*\w]+) *{([^}]*)}", self.svg.findtext("style") or "")}
        self.por_id = {e.get("id"): e for e in self.svg.iter() if e.get("id")}
        self.x, self.y, self.largura, self.altura = numeros(self.svg.get("viewBox"))
        # To what places are rounded, and those of letters: two hundredths of a millimetre on paper.
        self.passos = (1, 0.5) if self.largura > 200 else (0.01, 0.01)
        self.tons, self.linhas, self.estado = {}, [], {}

    def texto(self):
        self.linhas.append("4 M")
        self.filhos(self.svg, self.HERDADAS)
        lados = " ".join(numero(v, 2) for v in
                         (self.x, self.y, self.x + self.largura, self.y + self.altura))
        escala = " ".join(numero(v, 9) for v in
                          (1 / self.largura, 0, 0, -1 / self.altura, -self.x / self.largura,
                           1 + self.y / self.altura))
        recursos = f"/Shading<<{''.join(self.tons.values())}>>" if self.tons else ""
        return (f"/BBox[{lados}]/Matrix[{escala}]/Resources<<{recursos}>>\n"
                + "\n".join(self.linhas) + "\n")

    def filhos(self, elemento, herdado):
        for filho in elemento:
            if filho.tag not in ("defs", "style"):
                self.elemento(filho, herdado)

    def elemento(self, e, herdado):
        atributos = dict(herdado)
        for seletor in ("*", e.tag, "." + e.get("class", "")):
            atributos |= {k: v for k, v in self.estilos.get(seletor, {}).items() if k in herdado}
        atributos |= {k: v for k, v in e.attrib.items() if k in herdado}
        atributos["fill"] = e.get("data-opaco", atributos["fill"])
        antes, recorte = self.estado, e.get("clip-path")
        # Text comes with its transform done.
        proprio = bool(recorte or (e.get("transform") and e.tag != "text"))
        if proprio:
            self.linhas.append("q")
            self.estado = dict(antes)
        if recorte:
            self.caminho(trechos(self.por_id[recorte[5:-1]][0].get("d")), "W n", self.passos[0])
        if proprio and e.get("transform"):
            m = matriz(e.get("transform"))
            self.linhas.append(" ".join(
                [*(numero(v, 3) for v in m[:4]), *(numero(v, 2) for v in m[4:]), "cm"]))
        if e.tag == "use":
            self.elemento(self.por_id[e.get("href")[1:]], atributos)
        elif e.tag == "g":
            self.filhos(e, atributos)
        else:
            self.forma(list(self.contorno(e)), atributos, self.passos[e.tag == "text"])
        if proprio:
            self.linhas.append("Q")
            self.estado = antes

    def contorno(self, e):
        v = {k: float(n) for k, n in e.attrib.items() if re.fullmatch(r"-?[\d.]+", n)}
        if e.tag == "rect":
            return [("re", [v.get("x", 0), v.get("y", 0), v["width"], v["height"]])]
        if e.tag in ("circle", "ellipse"):
            return elipse(v["cx"], v["cy"], v.get("rx", v.get("r")), v.get("ry", v.get("r")))
        return trechos(self.letras(e) if e.tag == "text" else e.get("d"))

    def letras(self, texto):
        """The outlines of a text, in the coordinates of the whole drawing."""
        so_ele = ET.Element("svg", self.svg.attrib | {
            "xmlns": "http://www.w3.org/2000/svg",
            "viewBox": f"0 0 {self.largura} {self.altura}"})
        so_ele.extend([*self.svg.findall("style"), texto])
        svg = subprocess.run(["rsvg-convert", "-f", "svg"], input=ET.tostring(so_ele), check=True,
                             capture_output=True).stdout.decode()
        return " ".join(re.findall(r' d="([^"]*)"', svg))

    def forma(self, contorno, atributos, passo):
        cor, traco = atributos["fill"], atributos["stroke"]
        if cor.startswith("url"):
            self.degrade(contorno, self.por_id[cor[5:-1]])
            cor = "none"
        self.pintar("fill", cor, "rg", "g")
        self.pintar("stroke", traco, "RG", "G")
        if traco != "none":
            self.mudar("w", numero(float(atributos["stroke-width"]), 2), "1")
            self.mudar("j", "1" if atributos["stroke-linejoin"] == "round" else "0", "0")
            assert atributos["stroke-linecap"] == "butt"
        # Filling closes what stands open; a stroke's end is its own.
        fechado = contorno[-1][0] == "h"
        operador = {(True, False): "f", (False, True): "s" if fechado else "S",
                    (True, True): "b" if fechado else "B"}.get((cor != "none", traco != "none"))
        if operador:
            self.caminho(contorno[:-1] if fechado else contorno, operador, passo)

    def mudar(self, operador, valor, padrao):
        if self.estado.get(operador, padrao) != valor:
            self.estado[operador] = valor
            self.linhas.append(f"{valor} {operador}")

    def pintar(self, qual, cor, colorido, cinza):
        if cor == "none":
            return
        digitos = cor[1:] if len(cor) == 7 else "".join(2 * c for c in cor[1:])
        rgb = [numero(int(digitos[i:i + 2], 16) / 255, 3) for i in (0, 2, 4)]
        operador = f"{rgb[0]} {cinza}" if len(set(rgb)) == 1 else f"{' '.join(rgb)} {colorido}"
        if self.estado.get(qual, f"0 {cinza}") != operador:
            self.estado[qual] = operador
            self.linhas.append(operador)

    def caminho(self, contorno, operador, passo):
        for letra, pontos in contorno:
            self.linhas.append(" ".join([*(numero(round(p / passo) * passo, 2) for p in pontos), letra]))
        self.linhas.append(operador)

    def degrade(self, contorno, tom):
        """From top to bottom: of the shape, or where the gradient says."""
        alturas = [p for letra, pontos in contorno for p in pontos[1::2]]
        topo, base = min(alturas), max(alturas)
        if contorno[0][0] == "re":
            topo, base = contorno[0][1][1], contorno[0][1][1] + contorno[0][1][3]
        if tom.get("gradientUnits") == "userSpaceOnUse":
            topo, base = float(tom.get("y1")), float(tom.get("y2"))
        cores = [" ".join(numero(int(parada.get("stop-color")[i:i + 2], 16) / 255, 3)
                          for i in (1, 3, 5)) for parada in tom]
        nome = f"s{len(self.tons)}"
        self.tons[nome] = (
            f"/{nome}<</ShadingType 2/ColorSpace/DeviceRGB/Coords[0 {numero(topo, 2)} 0 "
            f"{numero(base, 2)}]/Function<</FunctionType 2/Domain[0 1]/C0[{cores[0]}]"
            f"/C1[{cores[1]}]/N 1>>>>")
        self.linhas.append("q")
        self.caminho(contorno, "W n", self.passos[0])
        self.linhas += [f"/{nome} sh", "Q"]
