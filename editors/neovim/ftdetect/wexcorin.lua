-- Recognises the two kinds of files by their names. Other programs have files *.opt and *.def, too. So a definition
-- must begin like one, and an option file must not have another type already.
local group = vim.api.nvim_create_augroup('wexcorin_files', {clear = true})

local keywords = {}
for word in ('integer double boolean string enumstr enumint multilist strlist macro immediate synonym group '
  .. 'deprecated obsolete indicator lookup eolcomm'):gmatch('%S+') do
  keywords[word] = true
end

-- Whether the first line that is no comment is a name with a keyword behind it. An empty file is a new definition.
local function begins_like_definition()
  for _, line in ipairs(vim.api.nvim_buf_get_lines(0, 0, 200, false)) do
    if line ~= '' and line:sub(1, 1) ~= '*' then
      local keyword = line:match('^%.?%a[%w_]*[ \t]+(%a+)')
      return keyword ~= nil and keywords[keyword:lower()] == true
    end
  end
  return true
end

vim.api.nvim_create_autocmd({'BufRead', 'BufNewFile'}, {
  group = group,
  pattern = '*.opt',
  callback = function()
    if vim.bo.filetype == '' then vim.bo.filetype = 'wexcorinopt' end
  end,
})
vim.api.nvim_create_autocmd({'BufRead', 'BufNewFile'}, {
  group = group,
  pattern = '*.def',
  callback = function()
    if begins_like_definition() then vim.bo.filetype = 'wexcorindef' end
  end,
})
