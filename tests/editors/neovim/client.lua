-- Opens the example with mistakes in Neovim, as a user would, and follows what the built-in client makes of the
-- server's answers. The steps are a coroutine, so that Neovim goes on between them as it does between keys.
vim.o.swapfile = false
vim.o.hidden = true
vim.o.showmode = false
vim.opt.shortmess:append('c')
vim.o.completeopt = 'menuone,noselect'
local file = 'examples/solver_mistakes.opt'
local until_found -- what the coroutine waits for
local limit

local function fail(what)
  io.stderr:write(what .. '\n')
  vim.cmd('cquit 1')
end

local function await(what, holds)
  until_found, limit = holds, vim.loop.now() + 10000
  if not coroutine.yield() then error('in vain waited for: ' .. what) end
end

local function expect(what, seen, wanted)
  if not vim.deep_equal(seen, wanted) then
    error(what .. '\nseen:   ' .. vim.inspect(seen) .. '\nwanted: ' .. vim.inspect(wanted))
  end
end

local function keys(text)
  vim.api.nvim_feedkeys(vim.api.nvim_replace_termcodes(text, true, false, true), 't', false)
end

-- Puts the cursor on the first place of the text in the current buffer.
local function go(text)
  vim.fn.cursor(1, 1)
  if vim.fn.search('\\V' .. text, 'cW') == 0 then error('not in the buffer: ' .. text) end
end

-- The text of the window that floats above the others.
local function float()
  for _, window in ipairs(vim.api.nvim_list_wins()) do
    if vim.api.nvim_win_get_config(window).relative ~= '' then
      return table.concat(vim.api.nvim_buf_get_lines(vim.api.nvim_win_get_buf(window), 0, -1, false), '\n')
    end
  end
end

local function offered()
  return vim.tbl_map(function(item) return item.word end, vim.fn.complete_info({'items'}).items)
end

local severities = {'error', 'warning', 'note', 'note'}

local function findings()
  return vim.tbl_map(function(each)
    return ('%d: %s: %s'):format(each.lnum + 1, severities[each.severity], each.message:match('^[^\n]*'))
  end, vim.diagnostic.get(0))
end

-- Those that check prints of the file, without the names of the rules.
local function findings_of_check()
  local found = {}
  for line in io.lines((file:gsub('%.opt$', '.expected'))) do
    local rest = line:match('^' .. vim.pesc(file) .. ':(.*)$')
    if rest and not rest:match('^%d+: note:') then table.insert(found, (rest:gsub(' %[[%w-]+%]$', ''))) end
  end
  return found
end

local steps = {}

function steps.diagnostics()
  await('findings', function() return #vim.diagnostic.get(0) > 0 end)
  expect('findings of check, each at its line', findings(), findings_of_check())
end

function steps.completion_of_names()
  keys('Gotime_l<C-x><C-o>')
  await('names are offered', function() return vim.fn.pumvisible() == 1 end)
  expect('the name that begins like the word is first', offered()[1], 'time_limit')
  keys('<C-n><C-y><Esc>')
  await('the name is taken', function() return vim.fn.mode() == 'n' end)
  expect('the line', vim.api.nvim_get_current_line(), 'time_limit')
end

function steps.completion_of_values()
  keys('omethod <C-x><C-o>')
  await('values are offered', function() return vim.fn.pumvisible() == 1 end)
  expect('the values of the option', vim.list_slice(offered(), 1, 5), {'auto', 'primal', 'dual', 'interior', 'race'})
  keys('<C-e><Esc>')
  await('the end of typing', function() return vim.fn.mode() == 'n' end)
  vim.cmd('normal! ddk')
end

function steps.hover()
  go('node_limit')
  vim.lsp.buf.hover()
  await('a window with help', float)
  assert(float():find('Nodes of the tree', 1, true), 'hover says nothing of the option: ' .. float())
  vim.cmd('normal! j') -- closes it
end

function steps.jump()
  go('node_limit')
  vim.lsp.buf.definition()
  await('the definition', function() return vim.fn.expand('%:t') == 'solver.def' end)
  expect('the line of the option', vim.api.nvim_get_current_line():gsub(' +', ' '):match('^%S+ %S+'), 'node_limit integer')
  expect('its type of file', vim.bo.filetype, 'wexcorindef')
  vim.cmd('edit ' .. file)
end

function steps.code_action()
  vim.ui.select = function(actions, options, choose)
    for i, each in ipairs(actions) do
      if options.format_item(each):find('threads', 1, true) then return choose(each, i) end
    end
    choose(nil)
  end
  go('thread 4')
  vim.lsp.buf.code_action()
  await('the suggestion is taken', function() return vim.fn.search('^threads 4$', 'nw') > 0 end)
end

function steps.rename()
  local function lines() -- that have the option, without what follows its name
    return vim.tbl_filter(function(line) return line:match('^stall_') end, vim.fn.getline(1, '$'))
  end
  go('stall_limit')
  vim.lsp.buf.rename('stall_rows')
  await('a new name in the file', function() return vim.fn.search('^stall_rows', 'nw') > 0 end)
  expect('all settings of the option', lines(), {'stall_rows 100', 'stall_rows 200'})
  vim.cmd('edit examples/solver.opt')
  expect('another option file', lines(), {'stall_rows 800'})
  vim.cmd('edit examples/solver.def')
  expect('the definition', lines()[1]:gsub(' +', ' '):match('^%S+ %S+ %d+'), 'stall_rows integer 208')
end

local order = {'diagnostics', 'completion_of_names', 'completion_of_values', 'hover', 'jump', 'code_action', 'rename'}

local run = coroutine.create(function()
  vim.cmd('edit ' .. file)
  for _, name in ipairs(order) do
    local ok, what = xpcall(steps[name], debug.traceback)
    if not ok then return fail(name .. ': ' .. what) end
  end
  io.stdout:write('done\n')
  vim.cmd('qall!')
end)

local function go_on(found)
  local ok, what = coroutine.resume(run, found)
  if not ok then fail(what) end
end

local timer = vim.loop.new_timer()
timer:start(0, 10, vim.schedule_wrap(function()
  if coroutine.status(run) ~= 'suspended' then return end
  if not until_found then return go_on(true) end
  if until_found() then
    until_found = nil
    go_on(true)
  elseif vim.loop.now() > limit then
    go_on(false)
  end
end))
