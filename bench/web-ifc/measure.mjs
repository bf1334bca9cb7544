// node measure.mjs open MODEL
// node measure.mjs save|edit MODEL TARGET
//
// Prints {"seconds": ...}: the time to open the model; to save it once it is open; to open it, change one value of a
// property set that several objects share, and save it.

import { IFCRELDEFINESBYPROPERTIES } from "web-ifc";
import { instancesOf, openModel, saveModel, startWebIfc } from "./model_file.mjs";

const [task, source, target] = process.argv.slice(2);

/** The first text property of the first set that several objects share. */
function findSharedText(api, model) {
  for (const relation of instancesOf(api, model, IFCRELDEFINESBYPROPERTIES)) {
    const { RelatedObjects: objects, RelatingPropertyDefinition: definition } = api.GetLine(model, relation);
    if (objects.length < 2) continue;
    for (const { value } of api.GetLine(model, definition.value).HasProperties ?? []) {
      const property = api.GetLine(model, value);
      if (typeof property.NominalValue?.value === "string") return property;
    }
  }
  throw new Error("no property set with a text is shared by several objects");
}

const tasks = {
  open(api) {
    const start = performance.now();
    openModel(api, source);
    return performance.now() - start;
  },
  save(api) {
    const model = openModel(api, source);
    const start = performance.now();
    saveModel(api, model, target);
    return performance.now() - start;
  },
  edit(api) {
    const start = performance.now();
    const model = openModel(api, source);
    const property = findSharedText(api, model);
    property.NominalValue.value = "edited";
    api.WriteLine(model, property);
    saveModel(api, model, target);
    return performance.now() - start;
  },
};

if (!(task in tasks) || !source || (task !== "open" && !target)) {
  console.error("usage: node measure.mjs open MODEL | save MODEL TARGET | edit MODEL TARGET");
  process.exit(2);
}
const api = await startWebIfc();
console.log(JSON.stringify({ seconds: tasks[task](api) / 1000 }));
