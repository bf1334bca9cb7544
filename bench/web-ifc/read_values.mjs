// node read_values.mjs MODEL [SET | SET/PROPERTY]...
//
// Prints the single values and quantities of a model's property sets, a line for each object that has the set, in the
// order of the relations in the file (all sets when none is named):
//
//     0Gv2TTQFX4rO6zRwAUzlWR Pset_WallCommon/FireRating=F 90() IFCLABEL
//     0Gv2TTQFX4rO6zRwAUzlWR BaseQuantities/Length=4.2(MILLI METRE) IFCQUANTITYLENGTH
//
// The unit is that of the property itself; it is empty where the model's unit applies. Line ends in a value show as "\n".
// No value and no type: the file has "$". Truth values are true, false and unknown.

import { IFCRELDEFINESBYPROPERTIES } from "web-ifc";
import { instancesOf, openModel, startWebIfc } from "./model_file.mjs";

const [source, ...wanted] = process.argv.slice(2);
if (!source) {
  console.error("usage: node read_values.mjs MODEL [SET | SET/PROPERTY]...");
  process.exit(2);
}

const api = await startWebIfc();
const model = openModel(api, source);
const read = (handle) => api.GetLine(model, handle.value);

/** "MILLI METRE", "DEGREE", "WATT KELVIN^-1", "EUR". */
function unitText(handle) {
  if (!handle) return "";
  const unit = read(handle);
  if (unit.Elements)
    return unit.Elements.map(read)
      .map(({ Unit, Exponent }) => unitText(Unit) + (Exponent.value === 1 ? "" : `^${Exponent.value}`))
      .join(" ");
  return [unit.Prefix, unit.Name ?? unit.Currency].flatMap((part) => part?.value ?? []).join(" ");
}

/** Value and type of a single value or quantity, undefined for other kinds of property. */
function valueOf(property) {
  if ("NominalValue" in property) {
    const nominal = property.NominalValue;
    return nominal ? { value: nominal.value ?? "unknown", type: nominal.name } : { value: "", type: "" };
  }
  const attribute = Object.keys(property).find((key) => /^(Length|Area|Volume|Count|Weight|Time|Number)Value$/.test(key));
  return attribute && { value: property[attribute].value, type: api.GetNameFromTypeCode(property.type).toUpperCase() };
}

function* linesOf(set) {
  const name = set.Name?.value ?? "";
  for (const property of (set.HasProperties ?? set.Quantities ?? []).map(read)) {
    const path = `${name}/${property.Name.value}`;
    const found = valueOf(property);
    if (found && (wanted.length === 0 || wanted.includes(name) || wanted.includes(path)))
      yield `${path}=${found.value}(${unitText(property.Unit)}) ${found.type}`.trimEnd().replaceAll("\n", "\\n");
  }
}

for (const number of instancesOf(api, model, IFCRELDEFINESBYPROPERTIES, true)) {
  const relation = api.GetLine(model, number);
  const sets = [relation.RelatingPropertyDefinition.value].flat();  // several numbers for a set of definitions
  const lines = sets.flatMap((set) => [...linesOf(api.GetLine(model, set))]);
  for (const object of relation.RelatedObjects.map(read))
    for (const line of lines) console.log(`${object.GlobalId.value} ${line}`);
}
