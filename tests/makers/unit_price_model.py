"""Writes data/random_units.txt: units to type into the unit maker, with the cost that it has to show.

The price is worked out here anew, from the rules and not from the program. Run it to write the file again; the seed is
fixed. Costs of weapons and accessories are those of the sample army.
"""
import configparser
import pathlib
import random
import re

DATA = pathlib.Path(__file__).parents[2] / "data"
CLASS = ["Infantry", "Vehicle", "Robot", "Robot"]
BASE = [[10, 6, 6, 0, 6], [10, 0, 0, 0, 0], [10, 6, 0, 0, 0], [10, 6, 0, 0, 1]]
TYPE_COST = [5, 5, 5, 15]
CHECKS = {"chkFlying": 0, "chkSharpShooter": 1, "chkMedic": 2, "chkFerocious": 5}
LEVELS = {"tedOfficerBonus": 3, "tedHeroicSave": 4}


def load_equipment():
    """For each unit class and kind the records (name, cost, PF that it adds as armour) which the class may carry."""
    pairs = re.findall('^"(\\w+)","([^"]+)"$', (DATA / "support_tables.txt").read_text(), re.MULTILINE)
    profile = configparser.RawConfigParser()
    profile.read(DATA / "sample" / "Harrow March.v2q", encoding="cp1252")
    may_carry = {(unit_class, kind): [] for unit_class in CLASS for kind in ("weapon", "accessory")}
    for section in (profile[name] for name in profile.sections() if "CLASS" in profile[name]):
        kind = {"#W": "weapon", "#I": "accessory"}[section["ENTRY"]]
        pf, armour = map(int, section.get("PROP1", "0,0").split(","))
        record = (section["NAME"], float(section["POINTS"].split(",")[1]), pf if armour else 0)
        for unit_class in set(CLASS):
            if (unit_class, section["CLASS"]) in pairs:
                may_carry[unit_class, kind].append(record)
    return may_carry


def number(text):
    digits = re.match(r"-?\d*\.?\d*", text)[0]
    return float(digits) if re.search(r"\d", digits) else 0.0


class Unit:
    def __init__(self, kind):
        self.kind, self.stats, self.words = kind, list(BASE[kind]), [0] * 6
        self.crew, self.items = [int(kind == 1), 0, 0, 0], []

    def set_stat(self, i, value):
        high = [20 if self.kind == 0 else None, 6, 6, 5 if self.kind == 0 else None, 6][i]
        low = [0, 2, 2, 0, 2 if self.kind == 0 else 0][i]
        if value > 0:
            value = max(min(value, high) if high else value, low)
        self.stats[i] = max(value, 0)

    def type_stat(self, i, text):
        shown = ""  # each key takes effect at once, and the field then shows the value that was let through
        for key in text:
            if key in "0123456789." and len(shown) < 3:
                self.set_stat(i, round(number(shown + key)))
                shown = str(self.stats[i])

    def type_number(self, field, text):
        shown = ""
        for key in text:
            shown = "4" if field in LEVELS and number(shown + key) > 4 else shown + key
        if field in LEVELS:
            self.words[LEVELS[field]] = round(number(shown))
        else:
            self.crew[int(field[-2])] = max(round(number(shown)), 0)

    def check(self, box):
        if box != "chkFerocious" or 1 <= self.stats[2] < 6:
            self.words[CHECKS[box]] ^= 1

    def pf_cost(self):
        pf = self.stats[3]
        return [0, 2, 4, 7, 10, 14][pf] if pf <= 5 else 14 + (pf - 5) * 5

    def cost(self):
        base = BASE[self.kind]
        points = self.stats[0] - base[0] + TYPE_COST[self.kind] + self.pf_cost() + (base[4] - self.stats[4]) * 2
        for stat, own, each in ((self.stats[1], base[1], 5), (self.stats[2], base[2], 3)):
            if stat == 0 and own > 0:
                points -= (7 - own) * 3
            else:
                points += ((own or 7 if stat else own) - stat) * each
        words = self.words
        points = max(points, 2.0) + max(words[3], 0) * 2 + max(words[4], 0) * 5
        points += 5 * words[2] + 5 * words[1] + 4 * words[5] + sum(record[1] for record in self.items)
        if self.kind:
            inside = max(self.pf_cost() / 2, 4.0)
            points += self.crew[1] * 4 + self.crew[0] * 2 + inside * self.crew[2] + (inside + 2) * self.crew[3]
        elif words[3] > 0:
            points *= 2
        return points * 1.5 if words[0] else points


def dialog(unit, rng):
    before, said = (list(unit.words), list(unit.crew)), ["special"]
    fields = list(LEVELS) if unit.kind == 0 else [f"tedCrewNumber({i})" for i in range(4)]
    for field in rng.sample(fields, rng.randint(0, len(fields))):
        text = rng.choice(["", "0", "1", "2", "3", "4", "5", "7", "12", "2.5", "3.5", "0.5", "-3", "1.2.3", "."])
        unit.type_number(field, text)
        said.append(f"{field}={text}")
    for box in rng.sample(list(CHECKS), rng.randint(0, 4)) if unit.kind == 0 else ["chkFlying"] * rng.randint(0, 1):
        unit.check(box)
        said.append(box)
    ends = "cmdCancel" if rng.random() < 0.1 or (unit.kind == 1 and sum(unit.crew) < 1) else "cmdOK"
    if ends == "cmdCancel":
        unit.words, unit.crew = before
    return " ".join([*said, ends])


def step(unit, may_carry, rng):
    what = rng.choice(["stat", "stat", "stat", "special", "special", "equip", "equip", "remove"])
    if what == "special":
        return dialog(unit, rng)
    if what == "remove" and unit.items:
        at = rng.randrange(len(unit.items))
        unit.set_stat(3, unit.stats[3] - unit.items.pop(at)[2])
        return f"remove {at}"
    if what == "equip":
        kind = rng.choice(["weapon", "accessory"])
        record = rng.choice(may_carry[CLASS[unit.kind], kind])
        unit.items.append(record)
        unit.set_stat(3, unit.stats[3] + record[2])
        return f"{kind} {record[0]}"
    i = rng.choice([[0, 1, 2, 2, 2, 3, 4], [0, 2, 3], [0, 1, 2, 3], [0, 1, 2, 3]][unit.kind])
    text = rng.choice([*map(str, range(8)), str(rng.randint(8, 25)), ".", "", "999", "1.2", "..5", "-8"])
    unit.type_stat(i, text)
    return f"tedStat({i})={text}"


def main():
    rng, may_carry = random.Random(20), load_equipment()
    lines = ["# Steps that make a unit, then its cost. 'special': steps in the dialog; 'weapon', 'accessory':"
             " the record to equip; 'remove': the row to remove. Written by unit_price_model.py."]
    for n in range(200):
        unit = Unit((0, 1, 0, 2, 3)[n % 5])
        steps = [f"optUnit({unit.kind})"] + [step(unit, may_carry, rng) for _ in range(rng.randint(2, 8))]
        lines.append(" | ".join([*steps, format(unit.cost(), ".15g")]))
    (pathlib.Path(__file__).parents[1] / "data" / "random_units.txt").write_text("\n".join(lines) + "\n", encoding="utf-8")


if __name__ == "__main__":
    main()
