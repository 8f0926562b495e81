#!/usr/bin/env node
// Validates glTF files with the Khronos glTF validator (the npm package
// "gltf-validator"), external resources (.bin, images) read beside the file.
// Prints one line a file with the counts of errors, warnings, infos and
// hints and the first errors; exits with 1 if any file has an error.
//   node scripts/gltf-validate.js VALIDATOR_DIR FILE.glb|FILE.gltf...
// VALIDATOR_DIR is the folder where npm installed the package.
'use strict';
const fs = require('fs');
const path = require('path');

const [validatorDir, ...files] = process.argv.slice(2);
if (!validatorDir || files.length === 0) {
  console.error('usage: node scripts/gltf-validate.js VALIDATOR_DIR FILE.glb|FILE.gltf...');
  process.exit(2);
}
const validator = require(path.resolve(validatorDir, 'node_modules', 'gltf-validator'));

async function validate(file) {
  const folder = path.dirname(file);
  const report = await validator.validateBytes(new Uint8Array(fs.readFileSync(file)), {
    uri: path.basename(file),
    maxIssues: 0,
    externalResourceFunction: (uri) =>
      new Promise((resolve, reject) => {
        fs.readFile(path.join(folder, decodeURIComponent(uri)), (error, data) =>
          error ? reject(error.toString()) : resolve(new Uint8Array(data)));
      }),
  });
  const issues = report.issues;
  console.log(`${file}: ${issues.numErrors} errors, ${issues.numWarnings} warnings, ` +
              `${issues.numInfos} infos, ${issues.numHints} hints`);
  for (const message of issues.messages.filter((m) => m.severity === 0).slice(0, 10)) {
    console.log(`  error ${message.code} at ${message.pointer || message.offset}: ${message.message}`);
  }
  return issues.numErrors;
}

(async () => {
  let errors = 0;
  for (const file of files) {
    try {
      errors += await validate(file);
    } catch (error) {
      console.log(`${file}: the validator can't read it: ${error}`);
      errors += 1;
    }
  }
  process.exit(errors > 0 ? 1 : 0);
})();
