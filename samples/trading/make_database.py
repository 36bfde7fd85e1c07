#!/usr/bin/env python3
"""Makes trading.sqlite, the books of a small trading company that never was.

    make_database.py FILE

Everything is drawn from one fixed series of numbers, so the same contents come out each time.
Amounts are whole cents and quantities whole units: sums are exact.
"""
import datetime
import os
import sqlite3
import sys

SCHEMA = """
CREATE TABLE clientes (codigo TEXT PRIMARY KEY, nombre TEXT, rif TEXT, direccion TEXT, ciudad TEXT);
CREATE TABLE articulos (codigo TEXT PRIMARY KEY, nombre TEXT, unidad TEXT, precio INTEGER);
CREATE TABLE facturas (numero INTEGER PRIMARY KEY, cliente TEXT REFERENCES clientes, fecha TEXT,
  condicion TEXT, vendedor TEXT, letras TEXT);
CREATE TABLE renglones (factura INTEGER REFERENCES facturas, renglon INTEGER,
  articulo TEXT REFERENCES articulos, cantidad INTEGER, precio INTEGER, nota TEXT,
  PRIMARY KEY (factura, renglon));
CREATE TABLE empleados (cedula TEXT PRIMARY KEY, nombre TEXT, cargo TEXT, tipo TEXT, ingreso TEXT,
  sueldo INTEGER);
CREATE TABLE recibos (numero INTEGER PRIMARY KEY, empleado TEXT REFERENCES empleados, desde TEXT,
  hasta TEXT, horas_extra INTEGER, bono INTEGER, seguro INTEGER, vivienda INTEGER,
  prestamo INTEGER);
CREATE TABLE movimientos (numero INTEGER PRIMARY KEY, articulo TEXT REFERENCES articulos,
  fecha TEXT, tipo TEXT, documento TEXT, cantidad INTEGER, costo INTEGER);
"""

GOODS = ["Martillo", "Serrucho", "Alicate", "Destornillador", "Llave ajustable", "Cinta métrica",
         "Taladro", "Brocha", "Rodillo", "Bombillo", "Tubo", "Codo", "Tornillo", "Clavo", "Bisagra",
         "Candado", "Cerradura", "Manguera", "Pala", "Pico", "Carretilla", "Cemento", "Pintura",
         "Barniz", "Lija", "Cable", "Enchufe", "Interruptor", "Guante", "Escalera"]
KINDS = ["de acero", "económico", "reforzado", "para albañil", "de 1/2 pulgada", "de 3/4", "Nº 8",
         "Nº 12", "galvanizado", "importado"]
UNITS = ["pza", "caja", "kg", "m", "saco", "gal"]
FIRST = ["María", "José", "Luis", "Carmen", "Pedro", "Ana", "Rafael", "Isabel", "Andrés", "Beatriz",
         "Ramón", "Lucía", "Simón", "Teresa", "Hernán", "Mónica"]
LAST = ["Peña", "Núñez", "García", "Rodríguez", "Briceño", "Muñoz", "Pérez", "Díaz", "Castaño",
        "León", "Marín", "Solís", "Yáñez", "Bermúdez"]
FIRMS = ["Construcciones", "Inversiones", "Ferretería", "Taller", "Suministros", "Comercial"]
TOWNS = ["Mérida", "Maracaibo", "Valencia", "Cumaná", "Coro", "San Cristóbal"]
POSTS = ["Vendedor", "Cajera", "Almacenista", "Chofer", "Contador", "Secretaria", "Gerente"]
NOTES = ["Sujeto a devolución en 8 días", "Garantía de un año del fabricante",
         "Entregado en dos partes; la segunda, el lunes", "Precio de oferta según lista del mes"]


UNITS_IN_WORDS = ["", "un", "dos", "tres", "cuatro", "cinco", "seis", "siete", "ocho", "nueve",
                  "diez", "once", "doce", "trece", "catorce", "quince", "dieciséis", "diecisiete",
                  "dieciocho", "diecinueve", "veinte", "veintiún", "veintidós", "veintitrés",
                  "veinticuatro", "veinticinco", "veintiséis", "veintisiete", "veintiocho",
                  "veintinueve"]
TENS_IN_WORDS = ["", "", "", "treinta", "cuarenta", "cincuenta", "sesenta", "setenta", "ochenta",
                 "noventa"]
HUNDREDS_IN_WORDS = ["", "ciento", "doscientos", "trescientos", "cuatrocientos", "quinientos",
                     "seiscientos", "setecientos", "ochocientos", "novecientos"]


def below_thousand_in_words(number):
    if number == 100:
        return "cien"
    words = [HUNDREDS_IN_WORDS[number // 100]]
    rest = number % 100
    if rest < 30:
        words.append(UNITS_IN_WORDS[rest])
    else:
        words.append(TENS_IN_WORDS[rest // 10])
        if rest % 10:
            words += ["y", UNITS_IN_WORDS[rest % 10]]
    return " ".join(word for word in words if word)


def in_words(cents):
    """An amount below a thousand million as an invoice says it."""
    units = cents // 100
    millions, thousands, rest = units // 10**6, units // 1000 % 1000, units % 1000
    words = []
    if millions:
        words.append("un millón" if millions == 1 else below_thousand_in_words(millions) + " millones")
    if thousands:
        words.append("mil" if thousands == 1 else below_thousand_in_words(thousands) + " mil")
    if rest or not words:
        words.append(below_thousand_in_words(rest) or "cero")
    return f"{' '.join(words)} con {cents % 100:02}/100"


class Numbers:
    """A plain linear congruential series: the same on every machine and for ever."""

    def __init__(self, seed):
        self.state = seed

    def below(self, limit):
        self.state = (self.state * 6364136223846793005 + 1442695040888963407) % 2**64
        return (self.state >> 33) % limit

    def between(self, least, greatest):
        return least + self.below(greatest - least + 1)

    def one_of(self, choices):
        return choices[self.below(len(choices))]


def person(numbers):
    return f"{numbers.one_of(FIRST)} {numbers.one_of(LAST)} {numbers.one_of(LAST)}"


def day(numbers, year=2026):
    return datetime.date(year, 1, 1) + datetime.timedelta(days=numbers.below(300))


def make_customers(base, numbers):
    for number in range(1, 61):
        name = f"{numbers.one_of(FIRMS)} {numbers.one_of(LAST)} e Hijos, C.A."
        base.execute("INSERT INTO clientes VALUES (?,?,?,?,?)", (
            f"C{number:03}", name, f"J-{numbers.between(10**7, 10**8 - 1)}-{numbers.below(10)}",
            f"Calle {numbers.between(1, 40)}, casa Nº {numbers.between(1, 99)}",
            numbers.one_of(TOWNS)))


def make_articles(base, numbers):
    number = 0
    for thing in GOODS:
        for kind in KINDS[:numbers.between(3, 8)]:
            number += 1
            base.execute("INSERT INTO articulos VALUES (?,?,?,?)", (
                f"A-{number:04}", f"{thing} {kind}", numbers.one_of(UNITS),
                numbers.between(150, 480000)))
    return [row[0] for row in base.execute("SELECT codigo FROM articulos ORDER BY codigo")]


def tax(net):
    """16 per cent, half a cent up."""
    return (net * 16 + 50) // 100


def make_invoices(base, numbers, articles):
    sizes = [1, 2, 120] + [numbers.between(1, 60) for _ in range(57)]
    for number, size in enumerate(sizes, start=1001):
        base.execute("INSERT INTO facturas VALUES (?,?,?,?,?,NULL)", (
            number, f"C{numbers.between(1, 60):03}", day(numbers).isoformat(),
            numbers.one_of(["CO", "CR"]), person(numbers)))
        for line in range(1, size + 1):
            article = numbers.one_of(articles)
            price = base.execute("SELECT precio FROM articulos WHERE codigo=?",
                                 (article,)).fetchone()[0]
            note = numbers.one_of(NOTES) if numbers.below(9) == 0 else None
            base.execute("INSERT INTO renglones VALUES (?,?,?,?,?,?)", (
                number, line, article, numbers.between(1, 48), price, note))
        net = base.execute("SELECT SUM(cantidad * precio) FROM renglones WHERE factura=?",
                           (number,)).fetchone()[0]
        base.execute("UPDATE facturas SET letras=? WHERE numero=?",
                     (in_words(net + tax(net)), number))


def make_payroll(base, numbers):
    for number in range(1, 41):
        card = f"V-{numbers.between(4 * 10**6, 3 * 10**7)}"
        salary = numbers.between(80000, 900000)
        base.execute("INSERT INTO empleados VALUES (?,?,?,?,?,?)", (
            card, person(numbers), numbers.one_of(POSTS), numbers.one_of(["F", "C"]),
            day(numbers, 2010 + numbers.below(16)).isoformat(), salary))
        half = salary // 2
        base.execute("INSERT INTO recibos VALUES (?,?,?,?,?,?,?,?,?)", (
            500 + number, card, "2026-10-01", "2026-10-15", numbers.below(40) * 1250,
            numbers.below(3) * 15000, half * 4 // 100, half // 100, numbers.below(2) * 20000))


def make_movements(base, numbers, articles):
    number = 0
    for article in articles:
        cost = base.execute("SELECT precio * 7 / 10 FROM articulos WHERE codigo=?",
                            (article,)).fetchone()[0]
        stock = 0
        date = datetime.date(2026, 1, 2)
        for _ in range(numbers.between(20, 110)):
            number += 1
            if stock < 20 or numbers.below(4) == 0:
                quantity, kind, paper = numbers.between(30, 200), "E", f"COM-{number:05}"
            else:
                quantity, kind, paper = -numbers.between(1, min(stock, 40)), "S", f"FAC-{number:05}"
            stock += quantity
            base.execute("INSERT INTO movimientos VALUES (?,?,?,?,?,?,?)", (
                number, article, date.isoformat(), kind, paper, quantity, cost))
            date += datetime.timedelta(days=numbers.below(4))


def main():
    path = sys.argv[1]
    if os.path.exists(path):
        os.remove(path)
    base = sqlite3.connect(path)
    base.executescript("PRAGMA page_size = 1024;" + SCHEMA)
    numbers = Numbers(2026)
    make_customers(base, numbers)
    articles = make_articles(base, numbers)
    make_invoices(base, numbers, articles)
    make_payroll(base, numbers)
    make_movements(base, numbers, articles)
    base.commit()
    base.execute("VACUUM")
    base.close()


main()
