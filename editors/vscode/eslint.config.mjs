// The rules of eslint and of typescript-eslint, those with types included.
import eslint from "@eslint/js";
import tseslint from "typescript-eslint";

export default tseslint.config(
  {ignores: ["out", "node_modules", "eslint.config.mjs"]},
  eslint.configs.recommended,
  ...tseslint.configs.strictTypeChecked,
  {languageOptions: {parserOptions: {project: "./tsconfig.json"}}},
);
