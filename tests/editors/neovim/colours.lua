-- The types of files and the colours that Neovim has for the examples: the groups of their lines, one after the other.
local function groups(pattern)
  local line, text, found = vim.fn.search('\\V\\^' .. pattern, 'cw'), vim.fn.getline('.'), {}
  for column = 1, #text do
    local name = vim.fn.synIDattr(vim.fn.synID(line, column, 1), 'name'):gsub('^wexcorin...', '')
    if name ~= '' and name ~= found[#found] then table.insert(found, name) end
  end
  return table.concat(found, ' ')
end

local wanted = {
  ['examples/solver.opt'] = {
    ['* Options'] = 'Comment',
    ['title ='] = 'Key Assign Text Separator Text',
    ['time_limit :='] = 'Key Assign Number Tail',
    ['unbounded_ray'] = 'Key Assign Switch',
    ['log_prefix'] = 'Key String',
    ['crossover_rounds'] = 'Key Star Number',
    ['--scenario'] = 'List ListText',
  },
  ['examples/solver_priorities.opt'] = {
    ["flow.prior('north', "] = 'Symbol Dot Elements Element Elements Element Elements Number',
    ["indic limit"] = 'Indicator Equation Elements Element Elements Condition Equation Elements Switch',
  },
  ['examples/solver_mistakes.opt'] = {['8 threads'] = 'Mistake', ['seed:12'] = 'Mistake'},
  ['examples/types.def'] = {
    ['firing'] = 'Name Keyword Number Text',
    ['rate'] = 'Name Type Modifier Number Constant Number Text',
    ['atmosphere'] = 'Name Type Modifier4 Number String Number Text',
    [' + nor'] = 'Help',
    [' `argon`'] = 'Item Help',
    ['heat '] = 'Name Keyword Word',
  },
}

local mistakes = {}
for file, lines in pairs(wanted) do
  vim.cmd('edit ' .. file)
  for pattern, right in pairs(lines) do
    local seen = groups(pattern)
    if seen ~= right then table.insert(mistakes, ('%s: %s: %s, right is %s'):format(file, pattern, seen, right)) end
  end
end

-- A file *.def of another program has the type that Neovim gives it.
vim.fn.writefile({'LIBRARY other', 'EXPORTS', '  entry'}, 'other.def')
vim.cmd('edit other.def')
if vim.bo.filetype == 'wexcorindef' then table.insert(mistakes, 'other.def is taken for a definition of options') end

io.stdout:write(table.concat(mistakes, '\n') .. '\n')
vim.cmd(#mistakes > 0 and 'cquit 1' or 'qall!')
