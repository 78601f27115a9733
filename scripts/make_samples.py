#!/usr/bin/env python3
"""Writes samples/data: one parts list in every encoding that the text files know, and a heating project.

A line of the list is a field record: article number, name, dimension, unit, price, quantity, remark; a colon inside a
value is stored as U+00AE. The project is a data tree in the bracketed format; its values are what a planner types, with
the unit that is expected. Lines end in CR LF. Run it after changing what is below and commit what it writes.
"""
import pathlib

# number, name, dimension, unit, price in euros, quantity, remark
ARTICLES = """
HK-1001|Heizkörper Typ 11|600 x 800 mm|St|148,90|12|Anschluss rechts
HK-1002|Heizkörper Typ 21|600 x 1000 mm|St|219,50|18|Anschluss links
HK-1003|Heizkörper Typ 22|600 x 1200 mm|St|264,00|24|Prüfdruck: 13 bar
HK-1004|Heizkörper Typ 33|900 x 1600 mm|St|512,75|6|nur Süd- und Westseite
HK-1010|Badheizkörper gerade|1800 x 600 mm|St|189,00|8|weiß, RAL 9016
HK-1011|Badheizkörper mit Elektropatrone|1800 x 600 mm|St|348,00|2|Nennleistung: 900 W
HZ-2001|Thermostatkopf mit Flüssigfühler|M30 x 1,5|St|18,40|68|Einstellbereich: 6 bis 28 °C
HZ-2002|Rücklaufverschraubung|DN 15|St|9,85|68|vernickelt
HZ-2003|Strangregulierventil|DN 25|St|74,20|9|mit Messanschlüssen
HZ-2004|Schmutzfänger|DN 32|St|41,60|4|Maschenweite: 0,6 mm
HZ-2005|Ausdehnungsgefäß|80 l|St|132,00|1|Vordruck: 1,5 bar
HZ-2006|Heizkreisverteiler|8 Kreise|St|386,00|3|mit Durchflussanzeigern
HZ-2007|Fußbodenheizungsrohr|17 x 2,0 mm|m|1,62|1450|sauerstoffdicht
HZ-2008|Noppenplatte für Fußbodenheizung|1000 x 1000 mm|m²|13,90|190|Dämmung: 30 mm
HZ-2009|Pufferspeicher|800 l|St|1480,00|1|Dämmstärke: 100 mm
HZ-2010|Plattenwärmeübertrager|40 kW|St|690,00|1|Übergabestation
WP-3001|Wärmepumpe Sole/Wasser|17 kW|St|11890,00|1|COP: 4,8 (B0/W35)
WP-3002|Wärmepumpe Luft/Wasser|9 kW|St|9640,00|1|Schallleistung: 52 dB(A)
WP-3003|Erdwärmesonde|4 x 32 mm|m|38,50|240|Bohrtiefe: 2 x 120 m
WP-3004|Soleflüssigkeit|20 l|Kanister|84,00|6|frostsicher bis −15 °C
PU-4001|Umwälzpumpe|DN 25, 1-6 m|St|214,00|3|Hocheffizienz, EEI ≤ 0,18
PU-4002|Zirkulationspumpe|DN 15|St|156,30|1|mit Zeitschaltuhr
PU-4003|Hebeanlage für Abwasser|2 x 1,1 kW|St|1985,00|1|Förderhöhe: 9 m
PU-4004|Druckerhöhungsanlage|3 x 2,2 kW|St|4870,00|1|Löschwasser
LU-5001|Lüftungskanal verzinkt|400 x 250 mm|m|46,80|36|Blechdicke: 0,75 mm
LU-5002|Wickelfalzrohr|DN 160|m|8,95|84|Länge: 3 m
LU-5003|Drosselklappe|DN 160|St|22,40|14|dicht schließend
LU-5004|Brandschutzklappe|400 x 250 mm|St|298,00|5|Auslösung: 72 °C
LU-5005|Schalldämpfer|DN 160 x 900 mm|St|64,50|7|Dämmung: 50 mm
LU-5006|Weitwurfdüse|DN 200|St|88,00|6|Wurfweite: 12 m
LU-5007|Luftqualitätsfühler CO₂|0-2000 ppm|St|172,00|4|0-10 V
LU-5008|Wärmerückgewinnungsgerät|350 m³/h|St|2790,00|1|Rückwärmzahl: 0,92
SA-6001|Waschtisch|600 x 480 mm|St|119,00|6|weiß
SA-6002|Einhebelmischer für Waschtisch|DN 15|St|87,50|6|Ausladung: 110 mm
SA-6003|Spülkasten Unterputz|1120 mm|St|168,00|5|2-Mengen-Spülung: 3/6 l
SA-6004|Bodenablauf|DN 50|St|54,20|4|Geruchverschluss
SA-6005|Hauswasserstation|DN 25|St|236,00|1|mit Rückflussverhinderer
SA-6006|Trinkwasserrohr Edelstahl|22 x 1,2 mm|m|11,75|96|gepresst
SA-6007|Kugelhahn|DN 20|St|14,30|28|Trinkwasser, prüfbar
SA-6008|Wasserzähler|Q3 = 4 m³/h|St|31,90|8|Eichfrist: 6 Jahre
GA-7001|Gaszähler|G 4|St|96,00|1|Stutzenabstand: 250 mm
GA-7002|Gasströmungswächter|DN 25|St|42,80|1|Typ: K
GA-7003|Gasrohr Stahl, schwarz|DN 25|m|9,40|18|geschweißt
DÄ-8001|Rohrdämmung|DN 25, 100 %|m|6,10|140|λ = 0,035 W/(m·K)
DÄ-8002|Körperschalldämmung|22 mm|m|2,35|60|für Rohrschellen
EL-9001|Elektroverteiler|3-reihig|St|128,00|2|Schutzart: IP 44
EL-9002|Übergangsdose für Raumfühler|Ø 60 mm|St|1,95|40|Unterputz
""".strip()

# What Windows-1252 lacks is spelled otherwise in every form, so that all five hold the same text.
REPLACED = {"−": "-", "≤": "<=", "₂": "2", "λ": "Lambda"}


# floor: name, height in metres, rooms; room: number, name, area as typed, degrees C, watts of heat load, radiators;
# radiator: type, height and length in millimetres, watts as typed
FLOORS = [
    ("Untergeschoss", "2,35", [
        ("U.01", "Heizraum", "3,20*2,90", 15, "180", []),
        ("U.02", "Hobbyraum", "5,60*4,10-0,80*1,20", 20, "1,12 kW", [(22, 600, 1200, "1245")]),
        ("U.03", "Waschküche", "3,20*3,05", 15, "310", [(11, 600, 800, "420")]),
    ]),
    ("Erdgeschoss", "2,55", [
        ("0.01", "Diele", "4,10*2,20", 18, "345", [(21, 600, 600, "398")]),
        ("0.02", "Wohnzimmer", "6,85*4,90", 21, "1780", [(22, 500, 1600, "1010"), (22, 500, 1400, "884")]),
        ("0.03", "Küche", "4,10*3,40", 20, "690", [(22, 600, 800, "0,83 kW")]),
        ("0.04", "Gäste-WC", "1,90*1,35", 20, "165", [(11, 600, 400, "208")]),
        ("0.05", "Arbeitszimmer", "3,90*3,40", 20, "705", [(22, 600, 600, "622")]),
    ]),
    ("Obergeschoss", "2,50", [
        ("1.01", "Flur", "5,20*1,45", 18, "260", [(11, 600, 600, "315")]),
        ("1.02", "Schlafzimmer", "4,65*4,10", 20, "910", [(22, 600, 1000, "1038")]),
        ("1.03", "Kinderzimmer", "4,10*3,60", 20, "760", [(22, 600, 800, "830")]),
        ("1.04", "Kinderzimmer", "4,10*3,55", 20, "745", [(22, 600, 800, "830")]),
        ("1.05", "Bad", "3,40*2,95", 24, "880", [(22, 600, 600, "598"), (99, 1800, 600, "2200 Btu/h")]),
    ]),
]
# riser: name, pipes; pipe: outer diameter and wall in millimetres, length as typed, litres per hour
RISERS = [
    ("Strang 1", [("28x1,5", "7,4", "640"), ("22x1,0", "5,2+3,1", "412"), ("15x1,0", "4*6,25", "96")]),
    ("Strang 2", [("22x1,0", "9,85", "380"), ("18x1,0", "12'-6\"", "205"), ("15x1,0", "3*5,40", "88")]),
]


def project():
    lines = []

    def node(name, depth, leaves, children=()):
        tabs = "\t" * depth
        lines.append(f"{tabs}[{name}]")
        lines.extend(f"{tabs}\t{leaf}:" + ":".join(str(v).replace(":", "\u00ae") for v in values)
                     for leaf, *values in leaves)
        for child in children:
            node(child[0], depth + 1, *child[1:])
        lines.append(f"{tabs}[ENDE_{name}]")

    def radiator(type_, height, length, output):
        kind = "Badheizkörper" if type_ == 99 else f"Heizkörper Typ {type_}"
        return ("Heizkörper", [("Typ", kind), ("Maße", height, length, "eUnitMillimeter"), ("Leistung", output, "eUnitW"),
                               ("Ventil", "DN 15", "kv: 0,6", "voreingestellt")])

    def room(number, name, area, degrees, load, radiators):
        return ("Raum", [("Nummer", number), ("Name", name), ("Fläche", area, "eUnitMeter2"),
                         ("Temperatur", degrees, "eUnitAbsGradCelsius"), ("Heizlast", load, "eUnitW")],
                [radiator(*one) for one in radiators])

    floors = [("Geschoss", [("Name", name), ("Höhe", height, "eUnitMeter")], [room(*one) for one in rooms])
              for name, height, rooms in FLOORS]
    risers = [("Strang", [("Name", name)],
               [("Rohr", [("Maße", size), ("Werkstoff", "Kupfer", "EN 1057"), ("Länge", length, "eUnitMeter"),
                          ("Volumenstrom", flow, "eUnitLpH")]) for size, length, flow in pipes])
              for name, pipes in RISERS]
    node("Projekt", 0, [("Name", "Einfamilienhaus Lindenweg 7"), ("Bauherr", "Müller & Söhne", "Lindenweg 7", "79098 Freiburg"),
                        ("Stand", "Ausführung: Juli 2026")],
         [("Auslegung", [("Außentemperatur", "-12", "eUnitAbsGradCelsius"), ("Vorlauf", "55", "eUnitAbsGradCelsius"),
                         ("Rücklauf", "45", "eUnitAbsGradCelsius"), ("Druckverlust", "0,15 bar", "eUnitPascal")]),
          *floors, ("Rohrnetz", [], risers)])
    return b"\xef\xbb\xbf" + ("\r\n".join(lines) + "\r\n").encode("utf-8")


def record(line):
    fields = line.split("|")
    assert len(fields) == 7, line
    return ":".join(field.replace(":", "\u00ae") for field in fields)


def main():
    text = "\r\n".join(record(line) for line in ARTICLES.split("\n")) + "\r\n"
    for character, replacement in REPLACED.items():
        text = text.replace(character, replacement)
    utf8 = b"\xef\xbb\xbf" + text.encode("utf-8")
    files = {
        "parts_utf8.txt": utf8,
        "parts_utf16le.txt": b"\xff\xfe" + text.encode("utf-16-le"),
        "parts_utf16be.txt": b"\xfe\xff" + text.encode("utf-16-be"),
        "parts_1252.txt": text.encode("cp1252"),
        "heating_project.txt": project(),
        "parts_scrambled.txt": bytes((byte + 3) % 256 for byte in utf8),
    }
    folder = pathlib.Path(__file__).resolve().parent.parent / "samples" / "data"
    folder.mkdir(parents=True, exist_ok=True)
    for name, data in files.items():
        (folder / name).write_bytes(data)


if __name__ == "__main__":
    main()
